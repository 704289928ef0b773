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
    std::uint32_t time = 10000; // milliseconds
    int cursorShown = 1;        // counted

    ZPoint GetMousePos () override { return pointer; }
    std::int32_t GetButtons () override { return buttons; }
    std::int32_t GetModifiers () override { return modifiers; }
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

} // namespace tessaly
