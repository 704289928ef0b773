#include "bypass_button.h"

namespace tessaly
{

void ZAMX_AnimOnOffButton::SwitchTo (bool on)
{
    BroadcastValue (GetId (), on ? 1.0f : 0.0f);
    SetDirty (true);
}

bool ZAMX_AnimOnOffButton::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown () || !pressArea.Contains (mouse.point))
        return OnMouseMove (event, mouse);
    SwitchTo (!GetBool ());
    return true;
}

bool ZAMX_AnimOnOffButton::OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& wheel)
{
    if (wheel.delta == 0 || !pressArea.Contains (wheel.point))
        return false;
    const auto wanted = wheel.delta > 0;
    if (wanted != GetBool ())
        SwitchTo (wanted);
    return true;
}

bool ZAMX_AnimOnOffButton::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    return IsMouseEnabled () && ZAnimOnOffButton::OnKeyDown (event, key);
}

} // namespace tessaly
