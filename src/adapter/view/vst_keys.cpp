#include "vst_keys.h"

#include "pluginterfaces/base/keycodes.h"
#include <algorithm>
#include <iterator>

namespace tessaly
{

namespace
{

struct KeyRow
{
    std::int32_t code; // VstVirtualKey
    std::int32_t key;
    char character; // 0: the record's own
};

constexpr KeyRow kRows[]{
    { VKEY_BACK, kKeyBack, 8 },
    { VKEY_TAB, kKeyTab, 9 },
    { VKEY_CLEAR, kKeyClear, 0 },
    { VKEY_RETURN, kKeyReturn, 13 },
    { VKEY_ESCAPE, kKeyEscape, 27 },
    { VKEY_SPACE, kKeySpace, 32 },
    { VKEY_END, kKeyEnd, 0 },
    { VKEY_HOME, kKeyHome, 0 },
    { VKEY_LEFT, kKeyLeft, 0 },
    { VKEY_UP, kKeyUp, 0 },
    { VKEY_RIGHT, kKeyRight, 0 },
    { VKEY_DOWN, kKeyDown, 0 },
    { VKEY_PAGEUP, kKeyPageUp, 0 },
    { VKEY_PAGEDOWN, kKeyPageDown, 0 },
    { VKEY_ENTER, kKeyEnter, 3 },
    { VKEY_INSERT, kKeyInsert, 0 },
    { VKEY_DELETE, kKeyDelete, 127 },
    { VKEY_HELP, kKeyHelp, 0 },
    { VKEY_MULTIPLY, kKeyMultiply, '*' },
    { VKEY_ADD, kKeyAdd, '+' },
    { VKEY_SEPARATOR, kKeySeparator, ',' },
    { VKEY_SUBTRACT, kKeySubtract, '-' },
    { VKEY_DECIMAL, kKeyDecimal, '.' },
    { VKEY_DIVIDE, kKeyDivide, '/' },
    { VKEY_EQUALS, kKeyEquals, '=' },
};

/// The key that a character is whatever its code says, or `otherwise`.
std::int32_t KeyOfCharacter (std::int32_t character, std::int32_t otherwise)
{
    switch (character)
    {
    case 3:
        return kKeyEnter;
    case 8:
        return kKeyBack;
    case 9:
        return kKeyTab;
    case 13:
        return kKeyReturn;
    case 27:
        return kKeyEscape;
    case 32:
        return kKeySpace;
    case 127:
        return kKeyDelete;
    default:
        return otherwise;
    }
}

} // namespace

NativeKey NativeKeyOf (const VstKeyCode& code)
{
    NativeKey key;
    std::int32_t character = code.character;
    const std::int32_t virt = code.virt;
    const auto* const row =
        std::find_if (std::begin (kRows), std::end (kRows), [&] (auto& r) { return r.code == virt; });
    if (row != std::end (kRows))
    {
        key.key = row->key;
        character = row->character != 0 ? row->character : character;
    }
    else if (virt >= VKEY_NUMPAD0 && virt <= VKEY_NUMPAD9)
    {
        key.key = kKeyNumPad0 + virt - VKEY_NUMPAD0;
        character = '0' + virt - VKEY_NUMPAD0;
    }
    else if (virt >= VKEY_F1 && virt <= VKEY_F12)
        key.key = kKeyF1 + virt - VKEY_F1;
    key.key = KeyOfCharacter (code.character, key.key);
    key.character = static_cast<char32_t> (character);
    key.modifiers = ((code.modifier & MODIFIER_SHIFT) != 0 ? kShift : 0) |
                    ((code.modifier & MODIFIER_CONTROL) != 0 ? kControl : 0) |
                    ((code.modifier & MODIFIER_ALTERNATE) != 0 ? kAlt : 0) |
                    ((code.modifier & MODIFIER_COMMAND) != 0 ? kCommand : 0);
    return key;
}

VstKeyCode KeyCodeOf (char16_t character, std::int16_t keyCode, std::int16_t modifiers)
{
    using namespace Steinberg;
    VstKeyCode code{};
    code.virt = static_cast<unsigned char> (keyCode);
    code.character = character != 0 ? character : VirtualKeyCodeToChar (code.virt);
    // The host's words: "command" is the control key here, "control" the one with the system's sign.
    code.modifier = static_cast<unsigned char> (((modifiers & kShiftKey) != 0 ? MODIFIER_SHIFT : 0) |
                                                ((modifiers & kAlternateKey) != 0 ? MODIFIER_ALTERNATE : 0) |
                                                ((modifiers & kCommandKey) != 0 ? MODIFIER_CONTROL : 0) |
                                                ((modifiers & kControlKey) != 0 ? MODIFIER_COMMAND : 0));
    return code;
}

} // namespace tessaly
