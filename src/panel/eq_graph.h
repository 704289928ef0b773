#pragma once

#include "control.h"
#include "eq_band.h"
#include "eq_graph_scale.h"
#include <array>
#include <cstdint>
#include <vector>

namespace tessaly
{

class Channel_Strip;
class ZBitmap;

/// The frequency response of the equalizer: the sum as a filled area, the three bands as lines over it, and a marker for
/// each band, which can be dragged. What is drawn is what the engine filters with.
///
/// It has no parameter of its own: a gesture on a marker broadcasts values of the band's parameters, as dials would, and
/// tells the editor kEditingStarted and kEditingEnded. Mouse: frequency and gain at once; with shift the first of the
/// two axes to move by more than 3 pixels; with alt the Q, a step for a pixel to the right or upwards. Wheel: the gain.
/// Keys, after a gesture of mouse or wheel: what it moved. Control-click: the gain's default.
///
/// Bands are those of EqBand. Rectangles and points are in the parent's coordinates.
class ZAMX_EqGraph final : public ZControl
{
public:
    using ZControl::ZControl;

    // Setup; images and the strip are borrowed, or null
    void SetPlotRect (const ZRect& rect); ///< of the curves
    void SetBackgrounds (ZBitmap* whileActive, ZBitmap* whileInactive);
    /// @param index  kAllBands or one of the bands  @param width  of the line  @param alpha  of the area
    void SetCurveStyle (std::int32_t index, std::int32_t width, ZColor normal, ZColor bright, ZColor disabled,
                        std::uint8_t alpha);
    /// @param rect  of the first marker in each image  @param disabledFrame  below it: 0 normal, 1 bright
    void SetMarkerSource (const ZRect& rect, std::int32_t disabledFrame);
    void SetMarkers (ZBitmap* low, ZBitmap* mid, ZBitmap* high);
    void SetStrip (Channel_Strip* newStrip) { strip = newStrip; } ///< null: neither curves nor markers

    // The band that is shown as touched
    std::int32_t GetCurrentBand () const { return currentBand; }
    bool IsTouched () const { return IsEditing () || dragMode != kUndecided; } ///< by mouse, wheel or key
    void SetCurrentBand (std::int32_t band);                                   ///< kNoBand, kAllBands or one of them
    bool IsCurrentBand (std::int32_t band) const { return band == currentBand || currentBand == kAllBands; }
    bool IsHoverBand (std::int32_t band) const { return band == hoverBand; }
    ZColor GetCurveColor (std::int32_t band) const;

    void ClearEditFlags (); ///< ends a gesture without a message
    void EndKeyEdit ();     ///< ends one of keys
    void EndBandEdit ();    ///< likewise, and keys move nothing before the next gesture

    const EqGraphScale& GetScale () const { return scale; }
    double PixelToGain (std::int32_t parameterId, double y) const; ///< dB, as it would be typed for the parameter
    ZRect GetMarkerRect (std::int32_t band) const;                 ///< empty for what is no single band
    std::int32_t FindMarker (ZPoint point) const;                  ///< the highest of several bands; kNoBand for none

    void SetValueById (std::int32_t controlId, float newValue) override; ///< redraws for each of the bands' parameters

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override;

    // Wheel and keys do nothing while the mouse is disabled
    bool OnResetClick (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyUp (ZEvent& event, const ZKeyInput& key) override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override; ///< what is under the pointer

private:
    static constexpr std::size_t kCurves = 4; // by EqBand: the sum, then the bands
    static constexpr std::size_t kBands = 3;  // by EqBand less one

    enum DragMode : std::int32_t // bits
    {
        kUndecided = 0,
        kGain = 1,
        kQ = 2,
        kFrequency = 4
    };

    struct CurveStyle
    {
        ZColor normal;
        ZColor bright;
        ZColor disabled;
        std::uint8_t alpha = 255;
        std::int32_t width = 1;
    };

    /// A drag of a marker; a default one between drags.
    struct Drag
    {
        ZPoint pressPoint; // to which the start values belong
        ZPoint lastPoint;
        BandParameters ids;
        double gainStart = 0.0; // dB
        double freqStart = 0.0; // Hz
        double qStart = 0.0;    // steps
    };

    using Curve = std::vector<ZPointF>;
    using Curves = std::array<Curve, kCurves>;

    // Drawing
    void DrawLook (ZCanvas& canvas, const ZBitmap* back) const;
    void DrawCurves (ZCanvas& canvas) const;
    Curves FindCurves (const ZCanvas& canvas) const; // a point for each column of the surface's pixels
    void FillArea (ZCanvas& canvas, Curve outline) const;
    void DrawLine (ZCanvas& canvas, const Curves& curves, std::int32_t band) const;
    void DrawMarkers (ZCanvas& canvas) const;

    // Gestures
    bool IsEditing () const { return mouseEditing || keyEditing; }
    void StartGesture (std::int32_t band); // lights it and tells the editor
    void Anchor (ZPoint point);            // the drag goes on from here, with the values of now
    void ChangeMode (const ZMouseInput& mouse);
    void LockAxis (ZPoint point);
    void MoveTowards (ZPoint point);
    void BroadcastStep (std::int32_t parameterId, double plain);
    double InRange (std::int32_t parameterId, double plain) const;
    bool StepParameter (std::int32_t parameterId, std::int32_t steps);
    bool IsBlocked () const; // nothing is to light under the pointer
    void SetHover (ZEvent& event, bool hand, std::int32_t band);

    EqGraphScale scale;
    ZBitmap* activeBack = nullptr;          // not owned: the editor's cache, as all images here
    ZBitmap* inactiveBack = nullptr;        //
    std::array<ZBitmap*, kBands> markers{}; //
    ZRect markerSource;
    std::int32_t disabledMarker = 0; // frame
    std::array<CurveStyle, kCurves> styles;
    Channel_Strip* strip = nullptr; // not owned: the effect's

    std::int32_t currentBand = kNoBand;
    std::int32_t hoverBand = kNoBand; // under the pointer
    bool handCursor = false;          // as the cursor was last set

    bool mouseEditing = false;
    bool keyEditing = false;
    std::int32_t dragMode = kUndecided; // bits of DragMode
    std::int32_t lastDragMode = kUndecided;
    std::int32_t lastBand = kNoBand; // of the last gesture, for the keys
    Drag drag;
};

} // namespace tessaly
