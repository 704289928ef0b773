#include "user_input.h"

#include "host_error.h"

#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

namespace tessaly::host
{

namespace
{

constexpr std::uint32_t kLeftShift = 0xFFE1;
constexpr std::uint8_t kWheelUp = 4;
constexpr std::uint8_t kWheelDown = 5;

} // namespace

UserInput::UserInput (const XConnection& to)
    : x (to)
    , symbols (xcb_key_symbols_alloc (to.Get ()))
{
    const auto* extension = xcb_get_extension_data (x.Get (), &xcb_test_id);
    if (extension && extension->present)
        return;
    xcb_key_symbols_free (symbols);
    throw HostError ("the X server has no XTEST extension");
}

UserInput::~UserInput ()
{
    xcb_key_symbols_free (symbols);
}

void UserInput::MoveTo (int screenX, int screenY) const
{
    Send (XCB_MOTION_NOTIFY, 0, screenX, screenY);
}

void UserInput::Press (Button button) const
{
    Send (XCB_BUTTON_PRESS, button);
}

void UserInput::Release (Button button) const
{
    Send (XCB_BUTTON_RELEASE, button);
}

void UserInput::Wheel (int notches) const
{
    const auto button = notches > 0 ? kWheelUp : kWheelDown;
    for (int i = std::abs (notches); i > 0; --i)
    {
        Send (XCB_BUTTON_PRESS, button);
        Send (XCB_BUTTON_RELEASE, button);
    }
}

void UserInput::KeyDown (std::uint32_t keysym) const
{
    Send (XCB_KEY_PRESS, KeyCode (keysym));
}

void UserInput::KeyUp (std::uint32_t keysym) const
{
    Send (XCB_KEY_RELEASE, KeyCode (keysym));
}

void UserInput::Key (std::uint32_t keysym) const
{
    KeyDown (keysym);
    KeyUp (keysym);
}

void UserInput::Type (std::string_view latin) const
{
    for (const char letter : latin)
    {
        const std::uint32_t keysym = static_cast<unsigned char> (letter);
        const bool shifted = NeedsShift (keysym);
        if (shifted)
            KeyDown (kLeftShift);
        Key (keysym);
        if (shifted)
            KeyUp (kLeftShift);
    }
}

void UserInput::Send (std::uint8_t type, std::uint8_t detail, int screenX, int screenY) const
{
    xcb_test_fake_input (x.Get (), type, detail, XCB_CURRENT_TIME, x.Screen ().root,
                         static_cast<std::int16_t> (screenX), static_cast<std::int16_t> (screenY), 0);
    x.Sync ();
}

std::uint8_t UserInput::KeyCode (std::uint32_t keysym) const
{
    const ReplyPtr<xcb_keycode_t> codes (xcb_key_symbols_get_keycode (symbols, keysym));
    if (!codes)
        throw HostError ("the keyboard has no key for the keysym " + std::to_string (keysym));
    return *codes;
}

bool UserInput::NeedsShift (std::uint32_t keysym) const
{
    return xcb_key_symbols_get_keysym (symbols, KeyCode (keysym), 0) != keysym;
}

} // namespace tessaly::host
