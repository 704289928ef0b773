#pragma once

#include "editor_window.h"
#include "windows_api.h"
#include <cstdint>

namespace tessaly
{

/// The pointer, its buttons and the modifier keys over one window, in coordinates of the panel: pixels divided by the
/// scale and floored. Host's user-interface thread.
class ZWinGDIEventImp final : public WindowInput
{
public:
    /// @param pixels  a coordinate
    explicit ZWinGDIEventImp (HWND on, double pixels = 1.0);
    ~ZWinGDIEventImp () override; ///< shows a hidden pointer

    void Begin (bool pointerInside) override { overWindow = pointerInside; }
    void Reset () override;
    void SetScale (double pixels) override { scale = pixels; }

    ZPoint GetMousePos () override;
    std::int32_t GetButtons () override;
    std::int32_t GetModifiers () override;
    std::uint32_t GetTime () override { return GetTickCount (); }
    std::uint32_t GetDoubleClickTime () override { return ::GetDoubleClickTime (); }
    void SetDefaultCursor () override;
    void SetCursor (std::int32_t kind) override;
    void ShowCursor () override;
    void HideCursor () override;
    void SetMousePos (ZPoint point) override;
    ZPoint GetRawMousePos () override { return GetMousePos (); }
    void SetOverPane (bool over) override { overWindow = over; }
    bool IsOverPane () override { return overWindow; }

private:
    void UseCursor (HCURSOR cursor);

    HWND window; // not owned: outlives this
    double scale;
    bool buttonsSwapped; // the user's left button is the second one; the system tells of the physical buttons
    bool overWindow = false;
    std::int32_t hidden = 0; // calls of HideCursor without ShowCursor
};

} // namespace tessaly
