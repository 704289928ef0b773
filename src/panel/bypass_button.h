#pragma once

#include "anim_on_off_button.h"
#include <cstdint>

namespace tessaly
{

/// A bypass switch: it switches at the press, in a part of its frame alone, and by the wheel, up for on. It takes no
/// drag and shows no state of a press.
class ZAMX_AnimOnOffButton final : public ZAnimOnOffButton
{
public:
    ZAMX_AnimOnOffButton (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
        : ZAnimOnOffButton (paneOwner, rect, controlId)
        , pressArea (rect)
    {
    }

    ZRect GetPressArea () const { return pressArea; }
    void SetPressArea (const ZRect& rect) { pressArea = rect; } ///< in the parent's coordinates; at first the frame

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override { return OnMouseUp (event, mouse); }
    bool OnMouseUp (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) override { return false; }
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override; ///< none while the mouse is disabled

private:
    void SwitchTo (bool on);

    ZRect pressArea;
};

} // namespace tessaly
