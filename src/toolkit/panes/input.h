#pragma once

#include "geometry.h"
#include <cstdint>

namespace tessaly
{

/// Bits of a mask of mouse buttons. ZPane adds and removes the last one; it never comes from the window.
enum Button : std::int32_t
{
    kLeftButton = 1,
    kMiddleButton = 2,
    kRightButton = 4,
    kDoubleClick = 8
};

/// Bits of a mask of modifier keys. Controls read shift (fine adjustment) and control (reset).
enum Modifier : std::int32_t
{
    kShift = 1,
    kControl = 2,
    kAlt = 4,
    kCommand = 8
};

/// Codes of keys that are more than their character.
enum Key : std::int32_t
{
    kKeyNone = 0,
    kKeyBack = 1,
    kKeyClear = 2,
    kKeyDelete = 3,
    kKeyEnd = 4,
    kKeyEnter = 5,
    kKeyEscape = 6,
    kKeyHelp = 7,
    kKeyHome = 8,
    kKeyInsert = 9,
    kKeyPageDown = 10,
    kKeyPageUp = 11,
    kKeyReturn = 12,
    kKeySpace = 13,
    kKeyTab = 14,
    kKeyLeft = 15,
    kKeyUp = 16,
    kKeyRight = 17,
    kKeyDown = 18,
    kKeyNumPad0 = 19, // to 28: the digits of the numeric pad in order
    kKeyEquals = 29,
    kKeyAdd = 30,
    kKeySubtract = 31,
    kKeyMultiply = 32,
    kKeyDivide = 33,
    kKeyDecimal = 34,
    kKeySeparator = 35,
    kKeyF1 = 36 // to 47: the function keys in order
};

/// What a call about the mouse carries: the point in root coordinates at a public entry of a pane, in those of the
/// pane's parent in a handler; masks of Button and Modifier; the time in milliseconds, which wraps.
struct ZMouseInput
{
    ZPoint point;
    std::int32_t buttons = 0;
    std::int32_t modifiers = 0;
    std::uint32_t time = 0;

    bool LeftDown () const { return (buttons & kLeftButton) != 0; }
    bool IsDoubleClick () const { return (buttons & kDoubleClick) != 0; }
};

/// A turn of the wheel: delta in notches, positive away from the user.
struct ZWheelInput
{
    ZPoint point;
    std::int32_t delta = 0;
    std::uint32_t time = 0;
};

/// A key: its character as one byte, 0 for none, and its code.
struct ZKeyInput
{
    char character = 0;
    std::int32_t modifiers = 0;
    std::int32_t key = kKeyNone;
    std::uint32_t time = 0;
};

} // namespace tessaly
