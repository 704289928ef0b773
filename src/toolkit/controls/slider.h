#pragma once

#include "control.h"
#include "slider_axis.h"
#include <cstdint>
#include <optional>

namespace tessaly
{

enum SliderDragMode : std::int32_t
{
    kSliderEndless = 0, // relative, with the cursor hidden and held where it was pressed
    kSliderJump = 1,    // the value jumps to the pointer and follows it
    kSliderThumb = 2,   // relative, only by the thumb
    kSliderPage = 3     // relative by the thumb; on the track steps towards the pointer
};

enum SliderHit : std::int32_t // what HitTest tells apart
{
    kSliderMiss = 0,
    kSliderThumbHit = 1,
    kSliderTrackHit = 2,
    kSliderLabelHit = 3
};

/// A straight control with a thumb that moves along its frame; names of operations say knob for it. A drag counts
/// pixels from its start, so that the pointer and the thumb stay together beyond the ends; in the endless mode a drag
/// that reaches a stop counts anew from there.
class ZSlider : public ZControl
{
public:
    ZSlider (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId); ///< its thumb is a square
    ~ZSlider () override; ///< shows the cursor if a drag has hidden it

    virtual void SetDragMode (std::int32_t mode) { dragMode = mode; } ///< of SliderDragMode
    std::int32_t GetDragMode () const { return dragMode; }
    void SetStyle (std::int32_t bits) { axis.SetStyle (bits); } ///< of SliderStyle
    std::int32_t GetStyle () const { return axis.GetStyle (); }
    void SetKnobRect (const ZRect& rect) { knobRect = rect; } ///< relative to the place of the thumb
    ZRect GetKnobRect () const;                               ///< where it is, in the parent's coordinates
    std::int32_t GetTrackLength () const { return axis.Length (GetFrame ()); }
    std::int32_t GetKnobLength () const { return axis.Length (knobRect); }
    virtual std::int32_t GetTravel () const
    {
        return GetTrackLength () - GetKnobLength ();
    } ///< of the thumb, in pixels

    // The value that the pointer asks for at a step of the drag. Without travel it is the present one.
    virtual float DragValue (const ZMouseInput& mouse);           ///< in the present mode
    virtual float PositionValue (const ZMouseInput& mouse) const; ///< with the thumb's centre at the pointer
    float RelativeValue (const ZMouseInput& mouse);
    float EndlessValue (const ZMouseInput& mouse);
    float PageValue (const ZMouseInput& mouse);

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    std::int32_t HitTest (ZEvent& event, const ZMouseInput& mouse) override; ///< of SliderHit

private:
    enum class Paging
    {
        None,
        Up,
        Down,
        Finished
    };

    bool StartDrag (ZEvent& event, const ZMouseInput& mouse, std::int32_t hit); // false: the press is refused
    void SetFine (bool on);
    float FineFactor () const { return fine ? kFineFactor : 1.0f; }

    std::int32_t dragMode = kSliderJump;
    ZSliderAxis axis;
    ZRect knobRect;

    // Of the present drag
    bool fine = false;
    float dragStartValue = 0.0f;
    float pressValue = 0.0f; // what the pointer said at the press
    ZPoint lastPoint;
    std::int32_t pixelSum = 0;  // along the axis
    std::int32_t pixelBase = 0; // of it that had passed at dragStartValue
    Paging paging = Paging::None;
    std::optional<std::uint32_t> nextPageTime; // milliseconds; none: the first step is due
    bool cursorShown = true;
    ZPoint savedCursor; // where the press was
};

} // namespace tessaly
