#include "win_panel_window.h"

#include "overlay_style.h"
#include "own_module.h"
#include "win_gdiplus_onscreen_canvas_imp.h"
#include "win_keyboard.h"
#include "win_matrix_menu_imp.h"
#include "win_text_edit_imp.h"
#include <cmath>
#include <string>
#include <utility>
#include <windowsx.h>

namespace tessaly
{

namespace
{

constexpr UINT_PTR kTimer = 1;
constexpr UINT kTickMs = 30;
constexpr WPARAM kButtonFlags = MK_LBUTTON | MK_MBUTTON | MK_RBUTTON;

int openWindows = 0; // of this module; host's user-interface thread

/// Modules of one name may be loaded from two places: the class belongs to the module's own address.
std::wstring ClassName ()
{
    return L"TessalyBenchPanel" + std::to_wstring (reinterpret_cast<std::uintptr_t> (OwnModule ()));
}

void AddClass (WNDPROC procedure)
{
    if (openWindows++ > 0)
        return;
    const auto name = ClassName ();
    WNDCLASSEXW description{};
    description.cbSize = sizeof (description);
    description.lpfnWndProc = procedure;
    description.hInstance = OwnModule ();
    description.hCursor = LoadCursorW (nullptr, IDC_ARROW);
    description.lpszClassName = name.c_str ();
    RegisterClassExW (&description);
}

void RemoveClass ()
{
    if (--openWindows == 0)
        UnregisterClassW (ClassName ().c_str (), OwnModule ());
}

ZPoint PlaceOf (LPARAM lParam)
{
    return { GET_X_LPARAM (lParam), GET_Y_LPARAM (lParam) };
}

std::int32_t ButtonsOf (WPARAM wParam)
{
    return ((wParam & MK_LBUTTON) != 0 ? kLeftButton : 0) | ((wParam & MK_MBUTTON) != 0 ? kMiddleButton : 0) |
           ((wParam & MK_RBUTTON) != 0 ? kRightButton : 0);
}

std::int32_t ButtonOf (UINT message)
{
    switch (message)
    {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
        return kLeftButton;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
        return kMiddleButton;
    default:
        return kRightButton;
    }
}

/// A typed value goes to the host, which may do anything on hearing of it.
class PanelTextEditImp final : public ZWinTextEditImpWithHandleEvent
{
public:
    PanelTextEditImp (HWND over, double pixels, EditorWindowListener& hearing)
        : ZWinTextEditImpWithHandleEvent (over, pixels)
        , listener (hearing)
    {
    }

protected:
    void End (bool commit) override
    {
        listener.OnFieldMessage ([this, commit] { ZWinTextEditImpWithHandleEvent::End (commit); });
    }

private:
    EditorWindowListener& listener; // not owned: outlives this
};

} // namespace

WinPanelWindow::WinPanelWindow (EditorWindowListener& hearing)
    : listener (hearing)
{
    AddClass (&Procedure);
    MakeSurface (1, 1, 1.0);
}

std::unique_ptr<WinPanelWindow> WinPanelWindow::Open (HWND parent, ZPoint size, double scale,
                                                      EditorWindowListener& hearing)
{
    std::unique_ptr<WinPanelWindow> made (new WinPanelWindow (hearing));
    made->window = CreateWindowExW (0, ClassName ().c_str (), L"", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0,
                                    size.x, size.y, parent, nullptr, OwnModule (), nullptr);
    if (made->window == nullptr)
        return nullptr;
    made->input = std::make_unique<ZWinGDIEventImp> (made->window, scale);
    SetWindowLongPtrW (made->window, GWLP_USERDATA, reinterpret_cast<LONG_PTR> (made.get ()));
    SetTimer (made->window, kTimer, kTickMs, nullptr);
    ShowWindow (made->window, SW_SHOWNA);
    return made;
}

WinPanelWindow::~WinPanelWindow ()
{
    input.reset (); // shows a hidden pointer
    if (window != nullptr)
    {
        SetWindowLongPtrW (window, GWLP_USERDATA, 0); // nobody hears its last messages
        DestroyWindow (window);
    }
    DeleteObject (fieldBrush);
    RemoveClass ();
}

LRESULT CALLBACK WinPanelWindow::Procedure (HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const self = reinterpret_cast<WinPanelWindow*> (GetWindowLongPtrW (handle, GWLP_USERDATA));
    return self != nullptr ? self->OnMessage (message, wParam, lParam)
                           : DefWindowProcW (handle, message, wParam, lParam);
}

LRESULT WinPanelWindow::OnMessage (UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND handle = window; // the listener may end this
    switch (message)
    {
    case WM_PAINT:
        Paint ();
        return 0;
    case WM_ERASEBKGND:
        return 1; // all of it is painted
    case WM_TIMER:
        listener.OnTick ();
        return 0;
    case WM_LBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDOWN:
        OnPress (message, lParam);
        return 0;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
    case WM_RBUTTONUP:
        OnRelease (message, wParam, lParam);
        return 0;
    case WM_MOUSEMOVE:
        OnMove (wParam, lParam);
        return 0;
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND> (lParam) != handle)
            captureLost = std::exchange (holdsPointer, false) || captureLost;
        return 0;
    case WM_MOUSELEAVE:
        pointerInside = false;
        return 0;
    case WM_MOUSEWHEEL:
        if (OnWheel (wParam, lParam))
            return 0;
        break;
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
        if (OnKeyMessage (message, wParam, lParam))
            return 0;
        break;
    case WM_KILLFOCUS:
        if (reinterpret_cast<HWND> (wParam) == nullptr || IsChild (handle, reinterpret_cast<HWND> (wParam)) == FALSE)
            listener.OnKeyboardLost ();
        return 0;
    case WM_CTLCOLOREDIT:
        return reinterpret_cast<LRESULT> (ColorField (reinterpret_cast<HDC> (wParam)));
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS; // what is not taken here goes on from here
    case WM_NCDESTROY:
        window = nullptr;
        break;
    default:
        break;
    }
    return DefWindowProcW (handle, message, wParam, lParam);
}

void WinPanelWindow::OnPress (UINT message, LPARAM lParam)
{
    const HWND handle = window;
    SetFocus (handle); // who loses it may end this
    if (GetWindowLongPtrW (handle, GWLP_USERDATA) != reinterpret_cast<LONG_PTR> (this))
        return;
    SetCapture (window);
    holdsPointer = true;
    captureLost = false;
    WatchPointer ();
    listener.OnMouseDown ({ PlaceOf (lParam), ButtonOf (message), ModifiersOfMessage () });
}

/// The capture lasts until no button is down any more.
void WinPanelWindow::OnRelease (UINT message, WPARAM wParam, LPARAM lParam)
{
    if ((wParam & kButtonFlags) == 0)
        ReleasePointer ();
    listener.OnMouseUp ({ PlaceOf (lParam), ButtonOf (message), ModifiersOfMessage () });
}

void WinPanelWindow::OnMove (WPARAM wParam, LPARAM lParam)
{
    WatchPointer ();
    listener.OnMouseMove ({ PlaceOf (lParam), ButtonsOf (wParam), ModifiersOfMessage () });
}

/// The system says when the pointer leaves only to who asks, each time anew.
void WinPanelWindow::WatchPointer ()
{
    if (std::exchange (pointerInside, true))
        return;
    TRACKMOUSEEVENT wanted{ sizeof (wanted), TME_LEAVE, window, 0 };
    TrackMouseEvent (&wanted);
    input->SetDefaultCursor ();
}

/// Fine wheels turn by less than a notch a message.
bool WinPanelWindow::OnWheel (WPARAM wParam, LPARAM lParam)
{
    POINT place{ GET_X_LPARAM (lParam), GET_Y_LPARAM (lParam) };
    ScreenToClient (window, &place);
    const int turned = GET_WHEEL_DELTA_WPARAM (wParam);
    wheelRest = (turned < 0) == (wheelRest < 0) ? wheelRest + turned : turned;
    const int notches = wheelRest / WHEEL_DELTA;
    wheelRest %= WHEEL_DELTA;
    return notches == 0 || listener.OnWheel ({ place.x, place.y }, notches);
}

bool WinPanelWindow::OnKeyMessage (UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND parent = GetParent (window);
    if (listener.OnKey (KeyOfMessage (wParam, lParam), message == WM_KEYDOWN || message == WM_SYSKEYDOWN))
        return true;
    SendMessageW (parent, message, wParam, lParam);
    return true;
}

/// The text field looks like the panel's read-outs.
HBRUSH WinPanelWindow::ColorField (HDC context)
{
    const ZOverlayStyle style;
    const auto color = [] (ZColor of) { return RGB (of.red, of.green, of.blue); };
    SetTextColor (context, color (style.text));
    SetBkColor (context, color (style.background));
    if (fieldBrush == nullptr)
        fieldBrush = CreateSolidBrush (color (style.background));
    return fieldBrush;
}

/// Only what the system asks for, from the retained surface.
void WinPanelWindow::Paint ()
{
    PAINTSTRUCT pass{};
    BeginPaint (window, &pass);
    const double scale = surface->GetScale ();
    const auto before = [scale] (LONG pixel) { return static_cast<std::int32_t> (std::floor (pixel / scale)); };
    const auto after = [scale] (LONG pixel) { return static_cast<std::int32_t> (std::ceil (pixel / scale)); };
    const ZRect rect{ before (pass.rcPaint.left), before (pass.rcPaint.top), after (pass.rcPaint.right),
                      after (pass.rcPaint.bottom) };
    {
        ZWinGDIPlusOnscreenCanvasImp screen (window, scale);
        screen.CopyCanvasPlain (*surface, rect, rect.TopLeft ());
    }
    EndPaint (window, &pass);
}

std::optional<ZPoint> WinPanelWindow::PointerPixel () const
{
    POINT place{};
    if (window == nullptr || GetCursorPos (&place) == FALSE || ScreenToClient (window, &place) == FALSE)
        return std::nullopt;
    return ZPoint{ place.x, place.y };
}

void WinPanelWindow::ReleasePointer ()
{
    holdsPointer = false;
    if (GetCapture () == window)
        ReleaseCapture ();
}

void WinPanelWindow::Resize (ZPoint pixels)
{
    SetWindowPos (window, nullptr, 0, 0, pixels.x, pixels.y, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinPanelWindow::MakeSurface (std::int32_t width, std::int32_t height, double scale)
{
    canvas.reset ();
    surface = std::make_unique<ZWinGDIPlusOffscreenCanvasImp> (width, height, scale);
    surface->TrackChanges (&changes);
    changes = {};
    canvas = std::make_unique<ZOnscreenCanvas> (*surface);
    if (input != nullptr)
        input->SetScale (surface->GetScale ());
    ShowAll ();
}

void WinPanelWindow::ShowChanges ()
{
    if (window == nullptr) // to the system that is all windows
        return;
    const auto changed = std::exchange (changes, {});
    for (const auto& pixels : changed.Rects ())
    {
        const RECT area{ pixels.left, pixels.top, pixels.right, pixels.bottom };
        InvalidateRect (window, &area, FALSE);
    }
}

void WinPanelWindow::ShowAll ()
{
    if (window != nullptr)
        InvalidateRect (window, nullptr, FALSE);
}

std::unique_ptr<ZMatrixMenuImp> WinPanelWindow::CreateMenuImp ()
{
    return std::make_unique<ZWinMatrixMenuImp> (window, surface->GetScale ());
}

std::unique_ptr<ZTextEditImp> WinPanelWindow::CreateTextEditImp ()
{
    return std::make_unique<PanelTextEditImp> (window, surface->GetScale (), listener);
}

} // namespace tessaly
