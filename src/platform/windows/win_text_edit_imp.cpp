#include "win_text_edit_imp.h"

#include "event.h"
#include "overlay_style.h"
#include "own_module.h"
#include "pixel_grid.h"
#include "text_buffer.h"
#include "text_edit.h"
#include "wide_text.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tessaly
{

namespace
{

constexpr std::int32_t kLeastWidth = 28;
constexpr std::int32_t kLeastHeight = 14;
constexpr std::size_t kLongestText = 255; // characters, and bytes
constexpr std::int32_t kFarthest = 65535; // pixels from the window

/// At least so large, about the same middle.
ZRect Enlarged (ZRect rect)
{
    if (rect.Height () < kLeastHeight)
    {
        rect.top += (rect.Height () - kLeastHeight) / 2;
        rect.bottom = rect.top + kLeastHeight;
    }
    if (rect.Width () < kLeastWidth)
    {
        rect.left += (rect.Width () - kLeastWidth) / 2;
        rect.right = rect.left + kLeastWidth;
    }
    return rect;
}

} // namespace

ZWinTextEditImp::ZWinTextEditImp (HWND over, double pixels)
    : parent (over)
    , scale (pixels)
{
}

ZWinTextEditImp::~ZWinTextEditImp ()
{
    ZWinTextEditImp::Close (false);
}

void ZWinTextEditImp::SetText (std::string_view newText)
{
    text = CutAtCharacter (newText, kLongestText);
}

bool ZWinTextEditImp::Open (ZEvent& event, const ZMouseInput& /*mouse*/)
{
    if (editWindow != nullptr || control == nullptr)
        return false;
    ZRect rect = control->GetHitRect ();
    event.RectToRoot (rect);
    const ZRect pixels = PixelGrid (scale).Pixels (Enlarged (rect));
    editWindow =
        CreateWindowExW (0, L"EDIT", WideText (text).c_str (), WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, pixels.left,
                         pixels.top, pixels.Width (), pixels.Height (), parent, nullptr, OwnModule (), nullptr);
    if (editWindow == nullptr)
        return false;
    UseFont (pixels.Height ());
    SetWindowLongPtrW (editWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR> (this));
    SendMessageW (editWindow, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    SendMessageW (editWindow, EM_SETSEL, 0, -1);
    SendMessageW (editWindow, EM_LIMITTEXT, kLongestText, 0);
    focusBefore = SetFocus (editWindow);
    return true;
}

/// As high as the field, in the panel's face.
void ZWinTextEditImp::UseFont (int pixels)
{
    LOGFONTW description{};
    auto* present = reinterpret_cast<HFONT> (SendMessageW (editWindow, WM_GETFONT, 0, 0));
    GetObjectW (present, sizeof (description), &description); // stays empty for the system's own font
    description.lfHeight = pixels;
    WideText (ZOverlayStyle{}.fontName).copy (description.lfFaceName, LF_FACESIZE - 1);
    font = CreateFontIndirectW (&description);
    SendMessageW (editWindow, WM_SETFONT, reinterpret_cast<WPARAM> (font), TRUE);
}

void ZWinTextEditImp::TakeTyped ()
{
    std::array<wchar_t, kLongestText + 1> typed{};
    const auto length = GetWindowTextW (editWindow, typed.data (), static_cast<int> (typed.size ()));
    SetText (Utf8Text ({ typed.data (), static_cast<std::size_t> (std::max (length, 0)) }));
}

bool ZWinTextEditImp::Close (bool commit)
{
    if (editWindow == nullptr)
        return false;
    if (commit)
        TakeTyped ();
    const bool hadFocus = GetFocus () == editWindow;
    DestroyWindow (std::exchange (editWindow, nullptr)); // its messages find it closed
    DeleteObject (std::exchange (font, nullptr));
    if (hadFocus)
        SetFocus (focusBefore);
    return false;
}

ZRect ZWinTextEditImp::GetEditRect () const
{
    if (editWindow == nullptr)
        return {};
    RECT own{};
    RECT parents{};
    GetWindowRect (editWindow, &own);
    GetWindowRect (parent, &parents);
    const auto coordinate = [this] (LONG pixel)
    { return static_cast<std::int32_t> (std::lround (std::clamp<LONG> (pixel, -kFarthest - 1, kFarthest) / scale)); };
    return { coordinate (own.left - parents.left), coordinate (own.top - parents.top),
             coordinate (own.right - parents.left), coordinate (own.bottom - parents.top) };
}

ZWinTextEditImpWithHandleEvent::~ZWinTextEditImpWithHandleEvent ()
{
    PutProcedureBack ();
}

bool ZWinTextEditImpWithHandleEvent::Open (ZEvent& event, const ZMouseInput& mouse)
{
    if (!ZWinTextEditImp::Open (event, mouse))
        return false;
    previous = reinterpret_cast<WNDPROC> (
        SetWindowLongPtrW (EditWindow (), GWLP_WNDPROC, reinterpret_cast<LONG_PTR> (&Procedure)));
    return true;
}

void ZWinTextEditImpWithHandleEvent::PutProcedureBack ()
{
    if (previous != nullptr && EditWindow () != nullptr)
        SetWindowLongPtrW (EditWindow (), GWLP_WNDPROC, reinterpret_cast<LONG_PTR> (previous));
    previous = nullptr;
}

bool ZWinTextEditImpWithHandleEvent::Close (bool commit)
{
    PutProcedureBack ();
    return ZWinTextEditImp::Close (commit);
}

LRESULT CALLBACK ZWinTextEditImpWithHandleEvent::Procedure (HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const imp = reinterpret_cast<ZWinTextEditImpWithHandleEvent*> (GetWindowLongPtrW (window, GWLP_USERDATA));
    return imp->HandleMessage (window, message, wParam, lParam);
}

LRESULT ZWinTextEditImpWithHandleEvent::HandleMessage (HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC procedure = previous; // closing puts it back
    switch (message)
    {
    case WM_KILLFOCUS:
        End (false);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS; // else a dialog of the host's takes return and escape
    case WM_KEYDOWN:
        if (wParam == VK_RETURN || wParam == VK_CANCEL)
            End (true);
        else if (wParam == VK_ESCAPE)
            End (false);
        break;
    default:
        break;
    }
    return IsWindow (window) != FALSE ? CallWindowProcW (procedure, window, message, wParam, lParam) : 0;
}

void ZWinTextEditImpWithHandleEvent::End (bool commit)
{
    control->CloseModal (commit);
}

} // namespace tessaly
