#pragma once

#include "edit_dial.h"
#include <cstdint>

namespace tessaly
{

/// The dial of the morph position. What it shows glides after the value, some frames a paint pass: fast under the hand,
/// slower when a click or the host moves the value,
///     shown[n] = round ((target + w * shown[n-1]) / (w + 1)),   w = 2 under the hand, 5 otherwise
/// and one frame nearer where rounding would stop it short. A third column shows that the parameters differ from what
/// the position gives; the bright one wins over it. Of the strip only two parts are ever shown, the knob and the label.
class ZAMX_MorphDial final : public ZAMX_EditDialImp
{
public:
    using ZAMX_EditDialImp::ZAMX_EditDialImp;

    void SetMorphColumns (std::int32_t normal, std::int32_t bright, std::int32_t modified);
    void SetKnobRect (const ZRect& rect) { knobRect = rect; } ///< from the frame's top left, as the label's
    void SetLabelRect (const ZRect& rect) { labelRect = rect; }
    void SetModified (bool on);
    bool IsModified () const { return modified; }
    void OnMorphMoved (); ///< the parameters are what the new position gives
    std::int32_t GetShownFrame () const { return shownFrame; }

    void SetValue (float newValue) override;
    void SetBright (bool on, bool redraw) override;
    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override; ///< not smoothed
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override;

private:
    std::int32_t TargetFrame () const;
    std::int32_t NextFrame (std::int32_t target) const;
    template <typename DrawPart>
    void DrawParts (ZCanvas& canvas,
                    const DrawPart& drawPart) const; // drawPart (rect) runs once for each, clipped to it

    std::int32_t modifiedColumn = 0;
    bool modified = false;
    bool bright = false;
    bool firstDraw = true; // which does not glide
    std::int32_t shownFrame = 0;
    ZRect knobRect;
    ZRect labelRect;
    ZPoint lastPoint;   // of the press or the drag
    bool moved = false; // by the drag that is on
};

} // namespace tessaly
