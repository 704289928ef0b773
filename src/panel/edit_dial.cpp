#include "edit_dial.h"

#include "panel_ids.h"
#include "step_keys.h"

namespace tessaly
{

void ZAMX_EditDialImp::StartEditing (std::uint32_t time)
{
    lastTouch = time;
    editing = true;
    BroadcastMessage (kEditingStarted, this);
}

void ZAMX_EditDialImp::Touch (std::uint32_t time)
{
    lastTouch = time;
    if (!editing)
        StartEditing (time);
}

void ZAMX_EditDialImp::EndEditing (bool notify)
{
    editing = false;
    lastTouch = 0;
    if (notify)
        BroadcastMessage (kEditingEnded, this);
}

void ZAMX_EditDialImp::EndEditingIfActive (bool notify)
{
    if (editing)
        EndEditing (notify);
}

void ZAMX_EditDialImp::SetBright (bool on, bool redraw)
{
    ShowLook (columns.Of (on), redraw);
}

void ZAMX_EditDialImp::ShowLook (std::int32_t column, bool redraw)
{
    ShowColumn (*this, column, GetFrame ().Width ());
    if (redraw) // otherwise a change of the value that is not painted yet must stay dirty
        SetDirty (true);
}

bool ZAMX_EditDialImp::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (mouse.LeftDown ())
        Touch (mouse.time);
    return ZAnimDial::OnMouseDown (event, mouse);
}

bool ZAMX_EditDialImp::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (mouse.LeftDown () && editing)
        lastTouch = mouse.time;
    return ZAnimDial::OnMouseMove (event, mouse);
}

bool ZAMX_EditDialImp::OnMouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    if (!IsMouseEnabled ())
        return false;
    Touch (wheel.time);
    ZAnimDial::OnMouseWheel (event, wheel);
    return true;
}

bool ZAMX_EditDialImp::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    if (!IsMouseEnabled ())
        return false;
    if (IsStepKey (key))
        Touch (key.time);
    return ZAnimDial::OnKeyDown (event, key);
}

void ZAMX_EditDialImp::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    ZAnimDial::OnIdle (event, mouse);
    const auto untouched = static_cast<std::int32_t> (mouse.time - lastTouch); // the clock may wrap
    if (editing && (!IsActive () || untouched >= holdTime))
        EndEditing (true);
}

} // namespace tessaly
