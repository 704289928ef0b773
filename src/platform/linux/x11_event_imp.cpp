#include "x11_event_imp.h"

#include "event.h"
#include "tick_clock.h"
#include "x11_masks.h"
#include <algorithm>
#include <cmath>
#include <xcb/xcb.h>

namespace tessaly
{

namespace
{

constexpr std::uint32_t kDoubleClickMs = 400; // X has no setting of its own; what toolkits of X take without one

std::int16_t Pixel (double value) // the first whole pixel of a coordinate
{
    return static_cast<std::int16_t> (std::clamp (std::ceil (value), -32768.0, 32767.0));
}

} // namespace

ZX11EventImp::ZX11EventImp (X11Connection& of, xcb_window_t on, double pixels)
    : connection (of)
    , window (on)
    , scale (pixels)
{
}

ZX11EventImp::~ZX11EventImp ()
{
    while (hidden > 0)
        ShowCursor ();
}

void ZX11EventImp::Reset ()
{
    while (hidden > 0)
        ShowCursor ();
    SetDefaultCursor ();
}

void ZX11EventImp::Begin (bool pointerInside)
{
    known = false;
    overPane = pointerInside;
}

ZPoint ZX11EventImp::ToPanel (double x, double y) const
{
    return { static_cast<std::int32_t> (std::floor (x / scale)), static_cast<std::int32_t> (std::floor (y / scale)) };
}

void ZX11EventImp::Ask ()
{
    if (known)
        return;
    known = true;
    const auto asked = xcb_query_pointer (connection.Get (), window);
    const XcbReply<xcb_query_pointer_reply_t> reply (xcb_query_pointer_reply (connection.Get (), asked, nullptr));
    if (reply == nullptr)
        return; // the window has gone: the last position stands
    position = ToPanel (reply->win_x, reply->win_y);
    buttons = ButtonsOf (reply->mask);
    modifiers = ModifiersOf (reply->mask);
}

ZPoint ZX11EventImp::GetMousePos ()
{
    Ask ();
    return position;
}

std::int32_t ZX11EventImp::GetButtons ()
{
    Ask ();
    return buttons;
}

std::int32_t ZX11EventImp::GetModifiers ()
{
    Ask ();
    return modifiers;
}

std::uint32_t ZX11EventImp::GetTime ()
{
    return SteadyTickMs ();
}

std::uint32_t ZX11EventImp::GetDoubleClickTime ()
{
    return kDoubleClickMs;
}

void ZX11EventImp::SetDefaultCursor ()
{
    SetCursor (kDefaultCursor);
}

void ZX11EventImp::SetCursor (std::int32_t kind)
{
    const std::uint32_t cursor = connection.Cursor (kind == kHandCursor ? kHandCursor : kDefaultCursor);
    xcb_change_window_attributes (connection.Get (), window, XCB_CW_CURSOR, &cursor);
    connection.Flush ();
}

void ZX11EventImp::ShowCursor ()
{
    if (hidden == 0)
        return;
    --hidden;
    connection.ShowPointer ();
}

void ZX11EventImp::HideCursor ()
{
    ++hidden;
    connection.HidePointer ();
}

void ZX11EventImp::SetMousePos (ZPoint point)
{
    known = false;
    if (GetMousePos () == point)
        return;
    xcb_warp_pointer (connection.Get (), XCB_WINDOW_NONE, window, 0, 0, 0, 0, Pixel (point.x * scale),
                      Pixel (point.y * scale));
    connection.Flush ();
    known = false;
}

} // namespace tessaly
