#pragma once

namespace tessaly
{

// Case of ASCII letters; every other byte, those of UTF-8 beyond ASCII included, stays. No locale.

constexpr char AsciiLower (char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char> (c - 'A' + 'a') : c;
}

constexpr char AsciiUpper (char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char> (c - 'a' + 'A') : c;
}

} // namespace tessaly
