#include "on_off_button.h"

namespace tessaly
{

bool ZOnOffButton::WantedState (ZEvent& event, const ZMouseInput& mouse)
{
    return HitTest (event, mouse) != 0 ? target : wasOn;
}

void ZOnOffButton::Switch (ZEvent& event, const ZMouseInput& mouse)
{
    const auto wanted = WantedState (event, mouse);
    if (wanted != GetBool ())
        BroadcastValue (GetId (), wanted ? 1.0f : 0.0f);
}

bool ZOnOffButton::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    wasOn = GetBool ();
    target = !wasOn;
    return OnMouseMove (event, mouse);
}

bool ZOnOffButton::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    if ((behaviour & (wasOn ? kOnActsAtPress : kOffActsAtPress)) != 0)
        Switch (event, mouse);
    return true;
}

bool ZOnOffButton::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    if ((behaviour & (wasOn ? kOnActsAtRelease : kOffActsAtRelease)) != 0)
        Switch (event, mouse);
    return false;
}

} // namespace tessaly
