#include "key_translation.h"

namespace tessaly
{

namespace
{

constexpr std::int32_t kKeepCharacter = 0; // the host's stays

struct Translation
{
    std::int32_t virtualCode;
    std::int32_t key;
    std::int32_t character;
};

constexpr Translation kVirtualKeys[]{
    { 1, kKeyBack, 8 },
    { 2, kKeyTab, 9 },
    { 3, kKeyClear, kKeepCharacter },
    { 4, kKeyReturn, 13 },
    { 6, kKeyEscape, 27 },
    { 7, kKeySpace, 32 },
    { 9, kKeyEnd, kKeepCharacter },
    { 10, kKeyHome, kKeepCharacter },
    { 11, kKeyLeft, kKeepCharacter },
    { 12, kKeyUp, kKeepCharacter },
    { 13, kKeyRight, kKeepCharacter },
    { 14, kKeyDown, kKeepCharacter },
    { 15, kKeyPageUp, kKeepCharacter },
    { 16, kKeyPageDown, kKeepCharacter },
    { 19, kKeyEnter, 3 },
    { 21, kKeyInsert, kKeepCharacter },
    { 22, kKeyDelete, 127 },
    { 23, kKeyHelp, kKeepCharacter },
    { 34, kKeyMultiply, '*' },
    { 35, kKeyAdd, '+' },
    { 36, kKeySeparator, ',' },
    { 37, kKeySubtract, '-' },
    { 38, kKeyDecimal, '.' },
    { 39, kKeyDivide, '/' },
    { 57, kKeyEquals, '=' },
};

// Rows of keys that follow each other in both numberings
constexpr std::int32_t kFirstNumPadCode = 24;
constexpr std::int32_t kNumPadKeys = 10;
constexpr std::int32_t kFirstFunctionCode = 40;
constexpr std::int32_t kFunctionKeys = 12;

constexpr bool IsInRow (std::int32_t code, std::int32_t first, std::int32_t count)
{
    return code >= first && code < first + count;
}

Translation ByVirtualCode (std::int32_t code)
{
    for (const auto& row : kVirtualKeys)
        if (row.virtualCode == code)
            return row;
    if (const auto digit = code - kFirstNumPadCode; IsInRow (code, kFirstNumPadCode, kNumPadKeys))
        return { code, kKeyNumPad0 + digit, '0' + digit };
    if (IsInRow (code, kFirstFunctionCode, kFunctionKeys))
        return { code, kKeyF1 + code - kFirstFunctionCode, kKeepCharacter };
    return { code, kKeyNone, kKeepCharacter };
}

std::int32_t ByCharacter (std::int32_t character, std::int32_t otherwise)
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

std::int32_t TranslateModifiers (std::int32_t host)
{
    constexpr std::int32_t kHostShift = 1;
    constexpr std::int32_t kHostAlternate = 2;
    constexpr std::int32_t kHostCommand = 4;
    constexpr std::int32_t kHostControl = 8;
    return ((host & kHostShift) != 0 ? kShift : 0) | ((host & kHostControl) != 0 ? kControl : 0) |
           ((host & kHostAlternate) != 0 ? kAlt : 0) | ((host & kHostCommand) != 0 ? kCommand : 0);
}

} // namespace

TranslatedKey TranslateKey (const HostKey& host)
{
    const auto virtualKey = ByVirtualCode (host.virtualCode);
    const auto character = virtualKey.character != kKeepCharacter ? virtualKey.character : host.character;
    return { character, ByCharacter (host.character, virtualKey.key), TranslateModifiers (host.modifiers) };
}

} // namespace tessaly
