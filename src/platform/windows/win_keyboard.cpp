#include "win_keyboard.h"

#include "key_translation.h"
#include <array>
#include <optional>

namespace tessaly
{

namespace
{

struct HostCode
{
    WPARAM key;
    std::int32_t code; // of Steinberg::VirtualKeyCodes
};

constexpr HostCode kHostCodes[]{
    { VK_BACK, 1 },      { VK_TAB, 2 },      { VK_CLEAR, 3 },     { VK_RETURN, 4 }, { VK_ESCAPE, 6 },
    { VK_SPACE, 7 },     { VK_END, 9 },      { VK_HOME, 10 },     { VK_LEFT, 11 },  { VK_UP, 12 },
    { VK_RIGHT, 13 },    { VK_DOWN, 14 },    { VK_PRIOR, 15 },    { VK_NEXT, 16 },  { VK_INSERT, 21 },
    { VK_DELETE, 22 },   { VK_HELP, 23 },    { VK_MULTIPLY, 34 }, { VK_ADD, 35 },   { VK_SEPARATOR, 36 },
    { VK_SUBTRACT, 37 }, { VK_DECIMAL, 38 }, { VK_DIVIDE, 39 },
};
constexpr std::int32_t kEnterCode = 19;
constexpr std::int32_t kFirstNumPadCode = 24;
constexpr std::int32_t kFirstFunctionCode = 40;
constexpr LPARAM kExtendedKey = LPARAM{ 1 } << 24; // of the return keys the one of the numeric pad

std::int32_t HostCodeOf (WPARAM key, LPARAM lParam)
{
    if (key == VK_RETURN && (lParam & kExtendedKey) != 0)
        return kEnterCode;
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9)
        return static_cast<std::int32_t> (key - VK_NUMPAD0) + kFirstNumPadCode;
    if (key >= VK_F1 && key <= VK_F12)
        return static_cast<std::int32_t> (key - VK_F1) + kFirstFunctionCode;
    for (const auto& row : kHostCodes)
        if (row.key == key)
            return row.code;
    return 0;
}

/// As typed, without what the control key makes of it.
char32_t CharacterOf (WPARAM key, LPARAM lParam)
{
    constexpr UINT kLeaveStateAlone = 4; // no dead key is begun or ended by asking
    std::array<BYTE, 256> keys{};
    GetKeyboardState (keys.data ());
    keys[VK_CONTROL] = keys[VK_LCONTROL] = keys[VK_RCONTROL] = (keys[VK_RMENU] & 0x80) != 0 ? keys[VK_CONTROL] : BYTE{};
    std::array<wchar_t, 8> typed{};
    const auto scanCode = static_cast<UINT> (lParam >> 16 & 0xFF);
    const int count = ToUnicode (static_cast<UINT> (key), scanCode, keys.data (), typed.data (),
                                 static_cast<int> (typed.size ()), kLeaveStateAlone);
    if (count == 2 && IS_SURROGATE_PAIR (typed[0], typed[1]))
        return 0x10000 + ((typed[0] & 0x3FFU) << 10U | (typed[1] & 0x3FFU));
    return count == 1 ? typed[0] : 0;
}

bool WasDown (int key)
{
    return (GetKeyState (key) & 0x8000) != 0;
}

} // namespace

std::int32_t ModifiersOfMessage ()
{
    return (WasDown (VK_SHIFT) ? kShift : 0) | (WasDown (VK_CONTROL) ? kControl : 0) | (WasDown (VK_MENU) ? kAlt : 0) |
           (WasDown (VK_LWIN) || WasDown (VK_RWIN) ? kCommand : 0);
}

NativeKey KeyOfMessage (WPARAM wParam, LPARAM lParam)
{
    const auto code = HostCodeOf (wParam, lParam);
    const char32_t typed = code != kEnterCode ? CharacterOf (wParam, lParam) : 0; // else it would be the return key
    const auto key = TranslateKey ({ static_cast<std::int32_t> (typed), code, 0 });
    return { static_cast<char32_t> (key.character), key.key, ModifiersOfMessage () };
}

} // namespace tessaly
