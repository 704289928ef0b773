#include "x11_keyboard.h"

#include "x11_masks.h"
#include <algorithm>
#include <iterator>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

// A field of xcb's header is called explicit, which is no name in C++.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpragmas"
#pragma GCC diagnostic ignored "-Wunknown-warning-option"
#pragma GCC diagnostic ignored "-Wkeyword-macro"
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#pragma GCC diagnostic pop

namespace tessaly
{

namespace
{

struct KeyName
{
    xkb_keysym_t symbol;
    std::int32_t key;
    char32_t character; // 0: that of the symbol
};

constexpr KeyName kKeyNames[]{
    { XKB_KEY_BackSpace, kKeyBack, 8 },
    { XKB_KEY_Clear, kKeyClear, 0 },
    { XKB_KEY_Delete, kKeyDelete, 127 },
    { XKB_KEY_KP_Delete, kKeyDelete, 127 },
    { XKB_KEY_End, kKeyEnd, 0 },
    { XKB_KEY_KP_End, kKeyEnd, 0 },
    { XKB_KEY_KP_Enter, kKeyEnter, 3 },
    { XKB_KEY_Escape, kKeyEscape, 27 },
    { XKB_KEY_Help, kKeyHelp, 0 },
    { XKB_KEY_Home, kKeyHome, 0 },
    { XKB_KEY_KP_Home, kKeyHome, 0 },
    { XKB_KEY_Insert, kKeyInsert, 0 },
    { XKB_KEY_KP_Insert, kKeyInsert, 0 },
    { XKB_KEY_Page_Down, kKeyPageDown, 0 },
    { XKB_KEY_KP_Page_Down, kKeyPageDown, 0 },
    { XKB_KEY_Page_Up, kKeyPageUp, 0 },
    { XKB_KEY_KP_Page_Up, kKeyPageUp, 0 },
    { XKB_KEY_Return, kKeyReturn, 13 },
    { XKB_KEY_space, kKeySpace, 32 },
    { XKB_KEY_Tab, kKeyTab, 9 },
    { XKB_KEY_ISO_Left_Tab, kKeyTab, 9 },
    { XKB_KEY_Left, kKeyLeft, 0 },
    { XKB_KEY_KP_Left, kKeyLeft, 0 },
    { XKB_KEY_Up, kKeyUp, 0 },
    { XKB_KEY_KP_Up, kKeyUp, 0 },
    { XKB_KEY_Right, kKeyRight, 0 },
    { XKB_KEY_KP_Right, kKeyRight, 0 },
    { XKB_KEY_Down, kKeyDown, 0 },
    { XKB_KEY_KP_Down, kKeyDown, 0 },
    { XKB_KEY_KP_Equal, kKeyEquals, '=' },
    { XKB_KEY_KP_Add, kKeyAdd, '+' },
    { XKB_KEY_KP_Subtract, kKeySubtract, '-' },
    { XKB_KEY_KP_Multiply, kKeyMultiply, '*' },
    { XKB_KEY_KP_Divide, kKeyDivide, '/' },
    { XKB_KEY_KP_Decimal, kKeyDecimal, '.' },
    { XKB_KEY_KP_Separator, kKeySeparator, ',' },
};

constexpr std::uint16_t kModifiers = 0xFF; // of an event's state; its group is in bits 13 and 14

} // namespace

void XkbRelease::operator() (xkb_context* context) const
{
    xkb_context_unref (context);
}

void XkbRelease::operator() (xkb_keymap* keymap) const
{
    xkb_keymap_unref (keymap);
}

void XkbRelease::operator() (xkb_state* state) const
{
    xkb_state_unref (state);
}

X11Keyboard::X11Keyboard (X11Connection& of)
    : connection (of)
{
    if (xkb_x11_setup_xkb_extension (connection.Get (), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                     XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr) == 0)
        return;
    constexpr std::uint32_t kDetectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto asked =
        xcb_xkb_per_client_flags (connection.Get (), XCB_XKB_ID_USE_CORE_KBD, kDetectable, kDetectable, 0, 0, 0);
    xcb_discard_reply (connection.Get (), asked.sequence);
    context.reset (xkb_context_new (XKB_CONTEXT_NO_FLAGS));
    Reload ();
}

void X11Keyboard::Reload ()
{
    if (context == nullptr)
        return;
    const auto device = xkb_x11_get_core_keyboard_device_id (connection.Get ());
    if (device < 0)
        return;
    keys.reset ();
    keymap.reset (
        xkb_x11_keymap_new_from_device (context.get (), connection.Get (), device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (keymap != nullptr)
        keys.reset (xkb_state_new (keymap.get ()));
}

NativeKey X11Keyboard::KeyOf (std::uint8_t code, std::uint16_t state) const
{
    NativeKey result{ 0, kKeyNone, ModifiersOf (state) };
    if (keys == nullptr)
        return result;
    xkb_state_update_mask (keys.get (), state & kModifiers, 0, 0, 0, 0, state >> 13 & 3);
    const auto symbol = xkb_state_key_get_one_sym (keys.get (), code);
    result.character = xkb_keysym_to_utf32 (symbol);
    const auto* const name =
        std::find_if (std::begin (kKeyNames), std::end (kKeyNames), [&] (auto& row) { return row.symbol == symbol; });
    if (name != std::end (kKeyNames))
    {
        result.key = name->key;
        result.character = name->character;
    }
    else if (symbol >= XKB_KEY_KP_0 && symbol <= XKB_KEY_KP_9)
        result.key = kKeyNumPad0 + static_cast<std::int32_t> (symbol - XKB_KEY_KP_0);
    else if (symbol >= XKB_KEY_F1 && symbol <= XKB_KEY_F12)
        result.key = kKeyF1 + static_cast<std::int32_t> (symbol - XKB_KEY_F1);
    return result;
}

} // namespace tessaly
