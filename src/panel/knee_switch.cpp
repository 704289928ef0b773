#include "knee_switch.h"

#include "canvas.h"
#include "list_steps.h"
#include "truncate.h"
#include <algorithm>

namespace tessaly
{

void ZAMX_KneeSwitch::SetImages (ZBitmap* whileActive, ZBitmap* whileInactive, std::int32_t count, std::int32_t height)
{
    activeImage = whileActive;
    inactiveImage = whileInactive;
    positions = count;
    rowHeight = height;
}

void ZAMX_KneeSwitch::SetBright (bool on, bool redraw)
{
    bright = on;
    if (redraw) // otherwise a change of the value that is not painted yet must stay dirty
        SetDirty (true);
}

std::int32_t ZAMX_KneeSwitch::FindRegion (ZPoint point) const
{
    const auto found =
        std::find_if (regions.begin (), regions.end (), [&] (const ZRect& rect) { return rect.Contains (point); });
    return found == regions.end () ? GetIndex () : static_cast<std::int32_t> (found - regions.begin ());
}

// Drawing

void ZAMX_KneeSwitch::DrawRow (ZCanvas& canvas, const ZBitmap* image, std::int32_t row) const
{
    if (image != nullptr)
        canvas.DrawBitmap (*image, GetDrawRect (), { 0, row * rowHeight });
}

void ZAMX_KneeSwitch::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    DrawRow (canvas, activeImage, GetIndex () + (bright ? positions : 0));
}

void ZAMX_KneeSwitch::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    DrawRow (canvas, inactiveImage, GetIndex () + 2 * positions);
}

// Input

void ZAMX_KneeSwitch::Choose (std::int32_t index)
{
    if (index == GetIndex ())
        return;
    BroadcastValue (GetId (), IntToNormalized (index, GetStep ()));
    SetDirty (true);
}

bool ZAMX_KneeSwitch::StepIndex (std::int32_t delta)
{
    // In double precision: a wheel may well tell of more notches than an int32 has room for.
    const auto wanted = static_cast<double> (GetIndex ()) + delta;
    Choose (Truncate (std::min (std::max<double> (wanted, GetMinimum ()), static_cast<double> (GetMaximum ()))));
    return true;
}

bool ZAMX_KneeSwitch::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    pressed = false;
    return OnMouseMove (event, mouse);
}

bool ZAMX_KneeSwitch::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    if (!pressed)
    {
        pressed = true;
        Choose (FindRegion (mouse.point));
    }
    return true;
}

bool ZAMX_KneeSwitch::OnMouseUp (ZEvent& /*event*/, const ZMouseInput& /*mouse*/)
{
    pressed = false;
    return false;
}

bool ZAMX_KneeSwitch::OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& wheel)
{
    return IsMouseEnabled () && StepIndex (wheel.delta);
}

bool ZAMX_KneeSwitch::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    constexpr std::int32_t kPage = 10;
    if (!IsMouseEnabled ())
        return false;
    switch (key.key)
    {
    case kKeyUp:
        return StepIndex (1);
    case kKeyDown:
        return StepIndex (-1);
    case kKeyPageUp:
        return StepIndex (kPage);
    case kKeyPageDown:
        return StepIndex (-kPage);
    default:
        return ZControl::OnKeyDown (event, key);
    }
}

} // namespace tessaly
