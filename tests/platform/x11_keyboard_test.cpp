#include "user_input.h"
#include "virtual_screen.h"
#include "x11_keyboard.h"

#include <doctest/doctest.h>
#include <xcb/xcb_keysyms.h>

namespace tessaly::test
{

TEST_CASE ("X11Keyboard: codes become characters and keys, with what is held")
{
    const VirtualScreen screen;
    const auto connection = X11Connection::Open ();
    REQUIRE (connection);
    const X11Keyboard keyboard (*connection);
    auto* const symbols = xcb_key_symbols_alloc (connection->Get ());
    const auto keyOf = [&] (std::uint32_t keysym, int state)
    {
        const host::ReplyPtr<xcb_keycode_t> code (xcb_key_symbols_get_keycode (symbols, keysym));
        REQUIRE (code);
        return keyboard.KeyOf (*code, static_cast<std::uint16_t> (state));
    };
    const struct
    {
        std::uint32_t keysym;
        int state;
        NativeKey expected;
    } rows[]{
        { 'a', 0, { U'a', kKeyNone, 0 } },
        { 'a', XCB_MOD_MASK_SHIFT, { U'A', kKeyNone, kShift } },
        { 'a', XCB_MOD_MASK_LOCK, { U'A', kKeyNone, 0 } }, // caps lock
        { '2', XCB_MOD_MASK_SHIFT, { U'@', kKeyNone, kShift } },
        { 0xFF0D, 0, { 13, kKeyReturn, 0 } },
        { 0xFF1B, XCB_MOD_MASK_1, { 27, kKeyEscape, kAlt } },
        { 0xFF09, XCB_MOD_MASK_SHIFT, { 9, kKeyTab, kShift } }, // a symbol of its own
        { 0xFF52, XCB_MOD_MASK_CONTROL, { 0, kKeyUp, kControl } },
        { 0xFFB7, XCB_MOD_MASK_2, { U'7', kKeyNumPad0 + 7, 0 } },
        { 0xFFB7, 0, { 0, kKeyHome, 0 } }, // without num lock
        { 0xFFBE, 0, { 0, kKeyF1, 0 } },
        { 0xFFE1, 0, { 0, kKeyNone, 0 } }, // shift itself
    };
    for (const auto& row : rows)
    {
        CAPTURE (row.keysym);
        CAPTURE (row.state);
        const auto key = keyOf (row.keysym, row.state);
        CHECK (key.character == row.expected.character);
        CHECK (key.key == row.expected.key);
        CHECK (key.modifiers == row.expected.modifiers);
    }
    xcb_key_symbols_free (symbols);
}

} // namespace tessaly::test
