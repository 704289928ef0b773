#include "utf8.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("IsUtf8: takes every length of character, refuses what Unicode forbids")
{
    for (const char* good :
         { "", "plain", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x8E\x9B", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF" })
        CHECK (IsUtf8 (good));
    for (const char* bad : { "caf\xE9", "\x80", "\xC3", "\xE2\x82", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                             "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xFF", "a\xC3z" })
        CHECK_FALSE (IsUtf8 (bad));
}
