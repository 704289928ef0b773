#include "anim_on_off_button.h"

namespace tessaly
{

void ZAnimOnOffButton::SetShownState (std::int32_t state)
{
    if (stateInside == kStateByValue && stateOutside == kStateByValue)
        Follow (shownState, state);
}

bool ZAnimOnOffButton::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    const auto on = GetBool ();
    const auto acts = on ? kOnActsAtPress | kOnActsAtRelease : kOffActsAtPress | kOffActsAtRelease;
    // A button that does not act in its direction shows the other one's way.
    stateInside = ((GetBehaviour () & acts) != 0) == on ? kStateGoingOff : kStateGoingOn;
    stateOutside = on ? kStateOn : kStateOff;
    return ZStateControl::OnMouseDown (event, mouse);
}

bool ZAnimOnOffButton::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    Follow (shownState, HitTest (event, mouse) != 0 ? stateInside : stateOutside);
    return ZStateControl::OnMouseMove (event, mouse);
}

bool ZAnimOnOffButton::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    stateInside = kStateByValue;
    stateOutside = kStateByValue;
    Follow (shownState, kStateByValue);
    return ZStateControl::OnMouseUp (event, mouse);
}

std::size_t ZAnimOnOffButton::StateOf (const Frames& frames) const
{
    if (shownState >= 0 && static_cast<std::size_t> (shownState) < frames.size ())
        return static_cast<std::size_t> (shownState);
    return GetBool () ? kStateOn : kStateOff;
}

} // namespace tessaly
