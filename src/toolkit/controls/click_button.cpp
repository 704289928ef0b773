#include "click_button.h"

namespace tessaly
{

bool ZClickButton::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (mouse.LeftDown () && (behaviour & kClickPress) != 0 && HitTest (event, mouse) != 0)
        BroadcastValue (GetId (), 1.0f);
    lastRepeat.reset ();
    return OnMouseMove (event, mouse);
}

void ZClickButton::Repeat (bool inside, std::uint32_t time)
{
    if (!inside)
    {
        lastRepeat.reset ();
    }
    else if (!lastRepeat || time - *lastRepeat > repeatInterval) // the difference: the clock may wrap
    {
        BroadcastValue (GetId (), 1.0f);
        lastRepeat = time;
    }
}

bool ZClickButton::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    const auto inside = HitTest (event, mouse) != 0;
    if ((behaviour & kClickRepeat) != 0)
    {
        Repeat (inside, mouse.time);
        return true;
    }
    const auto keeps = (behaviour & kClickRelease) != 0 || ((behaviour & kClickPress) != 0 && inside);
    return keeps || OnMouseUp (event, mouse);
}

bool ZClickButton::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    if ((behaviour & kClickRelease) != 0 && HitTest (event, mouse) != 0)
        BroadcastValue (GetId (), 0.0f);
    lastRepeat.reset ();
    return false;
}

} // namespace tessaly
