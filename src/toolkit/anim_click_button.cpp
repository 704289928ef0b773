#include "anim_click_button.h"

namespace tessaly
{

void ZAnimClickButton::SetPressed (bool down)
{
    if (down == pressed)
        return;
    pressed = down;
    SetDirty (true);
}

bool ZAnimClickButton::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    SetPressed (HitTest (event, mouse) != 0);
    return ZStateControl::OnMouseDown (event, mouse);
}

bool ZAnimClickButton::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    SetPressed (HitTest (event, mouse) != 0);
    return ZStateControl::OnMouseMove (event, mouse);
}

bool ZAnimClickButton::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    SetPressed (false);
    return ZStateControl::OnMouseUp (event, mouse);
}

} // namespace tessaly
