#pragma once

#include <string_view>

namespace tessaly
{

/// Whether a byte is a later one of a character of several bytes, where no text may be cut.
constexpr bool ContinuesCharacter (char byte)
{
    return (static_cast<unsigned char> (byte) & 0xC0) == 0x80;
}

/// Whether a text is well-formed UTF-8: no stray or missing bytes, no overlong forms, no surrogates, nothing above
/// U+10FFFF.
bool IsUtf8 (std::string_view text);

} // namespace tessaly
