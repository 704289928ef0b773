#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly
{

/// Numbers to text and back, the same under every locale of the host.

/// As "%W.Pf" in the C locale, W the width in characters, P the precision in digits after the point.
std::string FixedText (double value, int width, int precision);

/// As "%Wd" in the C locale, or with the pad '0' as "%0Wd".
std::string IntegerText (std::int64_t value, int width = 0, char pad = ' ');

/// A number at the beginning of a text.
struct ParsedNumber
{
    double value = 0.0;     // 0 when the text begins with none
    std::size_t length = 0; // characters that belong to it, blanks before it included; 0 when there is none
};

/// As strtod in the C locale: leading white space, a sign, then decimal digits with point and exponent, or hexadecimal
/// ones after "0x", or "inf", "infinity", "nan". Too great reads as infinity, too small as 0.
ParsedNumber ParseNumber (std::string_view text);

} // namespace tessaly
