#pragma once

#include "event.h"
#include "event_imp.h"
#include "input.h"

namespace tessaly
{

/// A window's input that a test sets: pointer, buttons, clock and cursor as plain fields.
struct FakeEvent final : ZEventImp
{
    ZPoint pointer;
    std::int32_t buttons = 0;
    std::uint32_t time = 10000; // milliseconds
    int cursorShown = 1;        // counted

    ZPoint GetMousePos () override { return pointer; }
    std::int32_t GetButtons () override { return buttons; }
    std::int32_t GetModifiers () override { return 0; }
    std::uint32_t GetTime () override { return time; }
    std::uint32_t GetDoubleClickTime () override { return 400; }
    void SetDefaultCursor () override {}
    void SetCursor (std::int32_t) override {}
    void ShowCursor () override { ++cursorShown; }
    void HideCursor () override { --cursorShown; }
    void SetMousePos (ZPoint point) override { pointer = point; }
    ZPoint GetRawMousePos () override { return pointer; }
    void SetOverPane (bool) override {}
    bool IsOverPane () override { return true; }
};

/// Drives a window: each act reaches a pane, or an editor. Points are in root coordinates.
class InputDriver
{
public:
    FakeEvent window;
    ZEvent event{ window };

    ZMouseInput At (ZPoint point, std::int32_t buttons = kLeftButton, std::int32_t modifiers = 0)
    {
        window.pointer = point;
        window.buttons = buttons;
        return { point, buttons, modifiers, window.time };
    }
    bool Press (auto& target, ZPoint point, std::int32_t modifiers = 0, std::int32_t buttons = kLeftButton)
    {
        return target.MouseDown (event, At (point, buttons, modifiers));
    }
    bool Drag (auto& target, ZPoint point, std::int32_t modifiers = 0)
    {
        return target.MouseMove (event, At (point, kLeftButton, modifiers));
    }
    bool Release (auto& target, ZPoint point) { return target.MouseUp (event, At (point, 0)); }
    bool Wheel (auto& target, std::int32_t delta)
    {
        return target.MouseWheel (event, { window.pointer, delta, window.time });
    }
    bool Key (auto& target, std::int32_t key, std::int32_t modifiers = 0, char character = 0)
    {
        return target.KeyDown (event, { character, modifiers, key, window.time });
    }
};

} // namespace tessaly
