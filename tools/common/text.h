#pragma once

#include "ascii_case.h"
#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace tessaly
{

// Small helpers on text. Nothing here knows a locale.

inline std::string_view Trimmed (std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of (kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr (first, text.find_last_not_of (kBlanks) - first + 1);
}

/// Turns ASCII letters to lower case, and nothing else.
inline std::string Lowered (std::string_view text)
{
    std::string lowered (text);
    std::transform (lowered.begin (), lowered.end (), lowered.begin (), AsciiLower);
    return lowered;
}

/// @return the finite number that the whole text is, or nothing
inline std::optional<double> ToNumber (std::string_view text)
{
    double number = 0.0;
    if (text.size () > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix (1); // from_chars takes no plus
    const char* end = text.data () + text.size ();
    const auto result = std::from_chars (text.data (), end, number);
    if (result.ec != std::errc () || result.ptr != end || !std::isfinite (number))
        return std::nullopt;
    return number;
}

/// @return the number with this many digits behind the point
inline std::string ToText (double number, int decimals)
{
    char buffer[400]; // the longest double in fixed form has 309 digits before the point
    const auto result = std::to_chars (buffer, buffer + sizeof buffer, number, std::chars_format::fixed, decimals);
    return { buffer, result.ptr };
}

} // namespace tessaly
