#include "key_translation.h"

#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;

TEST_CASE ("TranslateKey: virtual codes give the panes' codes, and a character where the key types one")
{
    struct Row
    {
        std::int32_t virtualCode; // as numbered in the SDK's keycodes.h
        std::int32_t key;
        std::int32_t character; // 0: the host's
    };
    for (const auto& row :
         { Row{ 3, kKeyClear, 0 }, Row{ 4, kKeyReturn, 13 }, Row{ 5, kKeyNone, 0 }, Row{ 7, kKeySpace, ' ' },
           Row{ 11, kKeyLeft, 0 }, Row{ 19, kKeyEnter, 3 }, Row{ 22, kKeyDelete, 127 }, Row{ 24, kKeyNumPad0, '0' },
           Row{ 33, 28, '9' }, Row{ 34, kKeyMultiply, '*' }, Row{ 40, kKeyF1, 0 }, Row{ 51, 47, 0 },
           Row{ 52, kKeyNone, 0 }, Row{ 57, kKeyEquals, '=' } })
    {
        CAPTURE (row.virtualCode);
        const auto key = TranslateKey ({ 'x', row.virtualCode, 0 });
        CHECK (key.key == row.key);
        CHECK (key.character == (row.character != 0 ? row.character : 'x'));
    }
}

TEST_CASE ("TranslateKey: a control character decides the key, whatever the virtual code")
{
    struct Row
    {
        std::int32_t character;
        std::int32_t key;
    };
    for (const auto& row : { Row{ 3, kKeyEnter }, Row{ 8, kKeyBack }, Row{ 9, kKeyTab }, Row{ 13, kKeyReturn },
                             Row{ 27, kKeyEscape }, Row{ 32, kKeySpace }, Row{ 127, kKeyDelete }, Row{ 'a', kKeyF1 } })
        CHECK (TranslateKey ({ row.character, 40, 0 }).key == row.key);
    CHECK (TranslateKey ({ 0x20AC, 0, 0 }).character == 0x20AC);
}

TEST_CASE ("TranslateKey: each modifier of the host has its bit")
{
    CHECK (TranslateKey ({ 'a', 0, 1 }).modifiers == kShift);
    CHECK (TranslateKey ({ 'a', 0, 2 }).modifiers == kAlt);
    CHECK (TranslateKey ({ 'a', 0, 4 }).modifiers == kCommand);
    CHECK (TranslateKey ({ 'a', 0, 8 }).modifiers == kControl);
}
