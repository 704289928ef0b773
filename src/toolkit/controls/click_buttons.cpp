#include "click_buttons.h"

namespace tessaly
{

bool ZAnimClickButton::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    Follow (pressed, HitTest (event, mouse) != 0);
    return ZStateControl::OnMouseDown (event, mouse);
}

bool ZAnimClickButton::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    Follow (pressed, HitTest (event, mouse) != 0);
    return ZStateControl::OnMouseMove (event, mouse);
}

bool ZAnimClickButton::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    Follow (pressed, false);
    return ZStateControl::OnMouseUp (event, mouse);
}

} // namespace tessaly
