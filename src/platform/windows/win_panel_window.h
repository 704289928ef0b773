#pragma once

#include "canvas.h"
#include "changed_area.h"
#include "editor_window.h"
#include "win_gdi_event_imp.h"
#include "win_gdiplus_offscreen_canvas_imp.h"
#include <memory>
#include <optional>

namespace tessaly
{

/// The panel's window as a child of the host's: a class of its own in the module, a timer, and a retained surface that
/// WM_PAINT shows. It runs no message loop; the host's brings its messages.
///
/// A press gives it the keyboard; keys that nobody in it takes go on to the host's window.
class WinPanelWindow final : public EditorWindow
{
public:
    /// @param parent    the host's window; not owned
    /// @param size      pixels
    /// @param hearing   not owned: outlives this
    /// @return null when the window can't be made
    static std::unique_ptr<WinPanelWindow> Open (HWND parent, ZPoint size, double scale, EditorWindowListener& hearing);
    ~WinPanelWindow () override;
    WinPanelWindow (const WinPanelWindow&) = delete;
    WinPanelWindow& operator= (const WinPanelWindow&) = delete;

    HWND Handle () const { return window; } ///< null when the host has destroyed it

    WindowInput& Input () override { return *input; }
    bool IsPointerInside () const override { return pointerInside; }
    std::optional<ZPoint> PointerPixel () const override;
    void ReleasePointer () override;
    void TakeKeyboard () override {} ///< the edit window takes it
    void GiveKeyboardBack () override {}
    bool HasLostFocus () override { return captureLost; } ///< of the keyboard WM_KILLFOCUS tells
    void ForgetFocus () override { captureLost = false; }
    void Resize (ZPoint pixels) override;
    void MakeSurface (std::int32_t width, std::int32_t height, double scale) override;
    ZCanvas& Canvas () override { return *canvas; }
    void ShowChanges () override;
    void ShowAll () override;
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override;
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override;

private:
    explicit WinPanelWindow (EditorWindowListener& hearing);

    static LRESULT CALLBACK Procedure (HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage (UINT message, WPARAM wParam, LPARAM lParam);
    void OnPress (UINT message, LPARAM lParam);
    void OnRelease (UINT message, WPARAM wParam, LPARAM lParam);
    void OnMove (WPARAM wParam, LPARAM lParam);
    bool OnWheel (WPARAM wParam, LPARAM lParam);
    bool OnKeyMessage (UINT message, WPARAM wParam, LPARAM lParam);
    void WatchPointer ();
    HBRUSH ColorField (HDC context);
    void Paint ();

    GdiplusSession gdiplus; // goes last
    EditorWindowListener& listener;
    HWND window = nullptr; // owned; null when the host has destroyed it
    std::unique_ptr<ZWinGDIEventImp> input;
    std::unique_ptr<ZWinGDIPlusOffscreenCanvasImp> surface;
    std::unique_ptr<ZOnscreenCanvas> canvas; // draws on the surface
    ChangedArea changes;                     // pixels of the surface that the window does not show yet
    bool pointerInside = false;
    bool holdsPointer = false;   // the pointer is captured
    bool captureLost = false;    // to another window, with a button held
    int wheelRest = 0;           // what the wheel has turned of the next notch, in WHEEL_DELTA
    HBRUSH fieldBrush = nullptr; // owned; null before the first text field
};

} // namespace tessaly
