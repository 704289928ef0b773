#include "utf8.h"

#include <cstddef>

namespace tessaly
{

namespace
{

/// The bytes of the character that begins with `lead`, and the range of the second of them, which is where overlong
/// forms, surrogates and too great values show (table 3-7 of the Unicode standard).
struct Form
{
    std::size_t length = 0; // 0: no character begins like this
    unsigned char secondLow = 0x80;
    unsigned char secondHigh = 0xBF;
};

constexpr Form FormOf (unsigned char lead)
{
    if (lead < 0x80)
        return { 1 };
    if (lead < 0xC2 || lead > 0xF4)
        return {};
    if (lead < 0xE0)
        return { 2 };
    if (lead < 0xF0)
        return { 3, static_cast<unsigned char> (lead == 0xE0 ? 0xA0 : 0x80),
                 static_cast<unsigned char> (lead == 0xED ? 0x9F : 0xBF) };
    return { 4, static_cast<unsigned char> (lead == 0xF0 ? 0x90 : 0x80),
             static_cast<unsigned char> (lead == 0xF4 ? 0x8F : 0xBF) };
}

} // namespace

bool IsUtf8 (std::string_view text)
{
    while (!text.empty ())
    {
        const auto form = FormOf (static_cast<unsigned char> (text[0]));
        if (form.length == 0 || form.length > text.size ())
            return false;
        for (std::size_t i = 1; i < form.length; ++i)
        {
            const auto byte = static_cast<unsigned char> (text[i]);
            if (byte < (i == 1 ? form.secondLow : 0x80) || byte > (i == 1 ? form.secondHigh : 0xBF))
                return false;
        }
        text.remove_prefix (form.length);
    }
    return true;
}

} // namespace tessaly
