#pragma once

#include "editor_window.h"
#include "x11_connection.h"
#include <cstdint>

namespace tessaly
{

/// The pointer, its buttons and the modifier keys over one X window, in coordinates of the panel: pixels divided by the
/// scale and floored. The server is asked once after each Begin, when something is first wanted.
/// Host's user-interface thread.
class ZX11EventImp final : public WindowInput
{
public:
    /// @param of  not owned: the window's, outlives this
    ZX11EventImp (X11Connection& of, xcb_window_t on, double pixels);
    ~ZX11EventImp () override; ///< shows a hidden pointer

    void Begin (bool pointerInside) override;
    void Reset () override;
    void SetScale (double pixels) override { scale = pixels; }
    ZPoint ToPanel (double x, double y) const; ///< x, y: pixels of the window

    ZPoint GetMousePos () override;
    std::int32_t GetButtons () override;
    std::int32_t GetModifiers () override;
    std::uint32_t GetTime () override;
    std::uint32_t GetDoubleClickTime () override;
    void SetDefaultCursor () override;
    void SetCursor (std::int32_t kind) override;
    void ShowCursor () override;
    void HideCursor () override;
    void SetMousePos (ZPoint point) override;
    ZPoint GetRawMousePos () override { return GetMousePos (); }
    void SetOverPane (bool over) override { overPane = over; }
    bool IsOverPane () override { return overPane; }

private:
    void Ask ();

    X11Connection& connection; // not owned
    xcb_window_t window;
    double scale; // pixels a coordinate
    bool overPane = false;
    std::int32_t hidden = 0; // calls of HideCursor without ShowCursor

    bool known = false; // whether the rest is what the server last said
    ZPoint position;
    std::int32_t buttons = 0;
    std::int32_t modifiers = 0;
};

} // namespace tessaly
