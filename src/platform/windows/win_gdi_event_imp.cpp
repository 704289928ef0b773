#include "win_gdi_event_imp.h"

#include "event.h"
#include "input.h"
#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

constexpr double kFarthest = 65536.0; // pixels from the window

bool IsDown (int key)
{
    return (GetAsyncKeyState (key) & 0x8000) != 0;
}

POINT TopLeft (HWND window)
{
    RECT rect{};
    GetWindowRect (window, &rect);
    return { rect.left, rect.top };
}

LONG FirstPixel (std::int32_t coordinate, double scale)
{
    return static_cast<LONG> (std::clamp (std::ceil (coordinate * scale), -kFarthest, kFarthest - 1.0));
}

} // namespace

ZWinGDIEventImp::ZWinGDIEventImp (HWND on, double pixels)
    : window (on)
    , scale (pixels)
    , buttonsSwapped (GetSystemMetrics (SM_SWAPBUTTON) != 0)
{
}

ZWinGDIEventImp::~ZWinGDIEventImp ()
{
    while (hidden > 0)
        ShowCursor ();
}

void ZWinGDIEventImp::Reset ()
{
    while (hidden > 0)
        ShowCursor ();
    SetDefaultCursor ();
}

ZPoint ZWinGDIEventImp::GetMousePos ()
{
    POINT place{};
    GetCursorPos (&place);
    overWindow = WindowFromPoint (place) == window;
    const POINT origin = TopLeft (window);
    return { static_cast<std::int32_t> (std::floor ((place.x - origin.x) / scale)),
             static_cast<std::int32_t> (std::floor ((place.y - origin.y) / scale)) };
}

std::int32_t ZWinGDIEventImp::GetButtons ()
{
    const std::int32_t left = buttonsSwapped ? kRightButton : kLeftButton;
    const std::int32_t right = buttonsSwapped ? kLeftButton : kRightButton;
    return (IsDown (VK_LBUTTON) ? left : 0) | (IsDown (VK_MBUTTON) ? kMiddleButton : 0) |
           (IsDown (VK_RBUTTON) ? right : 0);
}

std::int32_t ZWinGDIEventImp::GetModifiers ()
{
    return (IsDown (VK_SHIFT) ? kShift : 0) | (IsDown (VK_CONTROL) ? kControl : 0) | (IsDown (VK_MENU) ? kAlt : 0);
}

/// For the whole class, so that the system keeps it while the pointer moves; at once only where the pointer is ours.
void ZWinGDIEventImp::UseCursor (HCURSOR cursor)
{
    SetClassLongPtrW (window, GCLP_HCURSOR, reinterpret_cast<LONG_PTR> (cursor));
    if (overWindow)
        ::SetCursor (cursor);
}

void ZWinGDIEventImp::SetDefaultCursor ()
{
    UseCursor (LoadCursorW (nullptr, IDC_ARROW));
}

void ZWinGDIEventImp::SetCursor (std::int32_t kind)
{
    UseCursor (LoadCursorW (nullptr, kind == kHandCursor ? IDC_HAND : IDC_ARROW));
}

void ZWinGDIEventImp::ShowCursor ()
{
    if (hidden == 0)
        return;
    --hidden;
    ::ShowCursor (TRUE);
}

void ZWinGDIEventImp::HideCursor ()
{
    ++hidden;
    ::ShowCursor (FALSE);
}

void ZWinGDIEventImp::SetMousePos (ZPoint point)
{
    if (GetRawMousePos () == point)
        return;
    const POINT origin = TopLeft (window);
    SetCursorPos (FirstPixel (point.x, scale) + origin.x, FirstPixel (point.y, scale) + origin.y);
}

} // namespace tessaly
