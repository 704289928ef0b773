#pragma once

#include "event_imp.h"
#include "input.h"

namespace tessaly
{

/// A window's input that a test sets: pointer, buttons, clock and cursor as plain fields.
struct FakeEvent final : ZEventImp
{
    ZPoint pointer;
    std::int32_t buttons = 0;
    std::int32_t modifiers = 0;
    std::uint32_t time = 10000;          // milliseconds
    std::uint32_t doubleClickTime = 400; // milliseconds
    std::int32_t cursor = 0;
    int cursorShown = 1; // counted
    int pointerMoves = 0;
    bool over = true;

    ZPoint GetMousePos () override { return pointer; }
    std::int32_t GetButtons () override { return buttons; }
    std::int32_t GetModifiers () override { return modifiers; }
    std::uint32_t GetTime () override { return time; }
    std::uint32_t GetDoubleClickTime () override { return doubleClickTime; }
    void SetDefaultCursor () override { cursor = 0; }
    void SetCursor (std::int32_t kind) override { cursor = kind; }
    void ShowCursor () override { ++cursorShown; }
    void HideCursor () override { --cursorShown; }
    void SetMousePos (ZPoint point) override
    {
        pointerMoves += point == pointer ? 0 : 1;
        pointer = point;
    }
    ZPoint GetRawMousePos () override { return pointer; }
    void SetOverPane (bool on) override { over = on; }
    bool IsOverPane () override { return over; }
};

} // namespace tessaly
