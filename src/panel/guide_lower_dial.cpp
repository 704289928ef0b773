#include "guide_lower_dial.h"

#include "guide_upper_dial.h"
#include "panel_ids.h"
#include "step_keys.h"

namespace tessaly
{

void ZAMX_GuideLowerDial::SetBright (bool on, bool redraw)
{
    ShowColumn (*this, columns.Of (on), GetFrame ().Width ());
    if (redraw) // otherwise a change of the value that is not painted yet must stay dirty
        SetDirty (true);
}

std::int32_t ZAMX_GuideLowerDial::FrameOf (const ZAnimRecord& record, bool activeLook) const
{
    return guide != nullptr && !guide->IsIdle () ? 0 : ZAnimDial::FrameOf (record, activeLook);
}

bool ZAMX_GuideLowerDial::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (guide != nullptr)
        return guide->OnMouseDown (event, mouse);
    BroadcastMessage (kEditingStarted, this);
    return ZAnimDial::OnMouseDown (event, mouse);
}

bool ZAMX_GuideLowerDial::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    return guide != nullptr ? guide->OnMouseMove (event, mouse) : ZAnimDial::OnMouseMove (event, mouse);
}

bool ZAMX_GuideLowerDial::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    if (guide != nullptr)
        return guide->OnMouseUp (event, mouse);
    BroadcastMessage (kEditingEnded, this);
    return ZAnimDial::OnMouseUp (event, mouse);
}

bool ZAMX_GuideLowerDial::OnMouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    if (!IsMouseEnabled ())
        return false;
    if (guide != nullptr)
        return guide->OnMouseWheel (event, wheel);
    BroadcastMessage (kEditingStarted, this);
    return ZAnimDial::OnMouseWheel (event, wheel);
}

bool ZAMX_GuideLowerDial::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    if (!IsMouseEnabled ())
        return false;
    if (guide != nullptr)
        return guide->OnKeyDown (event, key);
    if (IsStepKey (key))
        BroadcastMessage (kEditingStarted, this);
    return ZAnimDial::OnKeyDown (event, key);
}

bool ZAMX_GuideLowerDial::OnKeyRepeat (ZEvent& event, const ZKeyInput& key)
{
    if (!IsMouseEnabled ())
        return false;
    return guide != nullptr ? guide->OnKeyRepeat (event, key) : ZAnimDial::OnKeyRepeat (event, key);
}

bool ZAMX_GuideLowerDial::OnKeyUp (ZEvent& event, const ZKeyInput& key)
{
    return guide != nullptr ? guide->OnKeyUp (event, key) : ZAnimDial::OnKeyUp (event, key);
}

} // namespace tessaly
