#include "anim_toggle_switch.h"

namespace tessaly
{

bool ZAnimToggleSwitch::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    middleShown = false;
    return ZStateControl::OnMouseDown (event, mouse);
}

bool ZAnimToggleSwitch::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    Follow (middleShown, IsInMiddle (mouse.point));
    return ZStateControl::OnMouseMove (event, mouse);
}

bool ZAnimToggleSwitch::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    Follow (middleShown, false);
    return ZStateControl::OnMouseUp (event, mouse);
}

std::size_t ZAnimToggleSwitch::StateOf (const Frames& frames) const
{
    if (middleShown && frames[kMiddle] != kNoFrame)
        return kMiddle;
    return GetIndex () != 0 ? kHigh : kLow;
}

} // namespace tessaly
