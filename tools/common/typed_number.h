#pragma once

#include "text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

namespace tessaly
{

/// A number as a user types it, with or without the unit that it is meant in; all of the text or nothing, since a
/// reader that takes what it can of "1.2.3" renders an hour with the wrong value. One sign, one decimal point, then
/// perhaps a blank and the unit, letter case apart: "2000", "2k", "2 kHz", "+3 dB", "12.5 ms". A ratio, which has no
/// unit, may be "4:1", and "INF" is infinite.
/// @param unit  of the scale: "Hz", "dB", "ms" or empty
/// @return in the scale's unit; infinite for "INF" alone
inline std::optional<double> TypedNumber (std::string_view text, std::string_view unit)
{
    std::string typed = Lowered (Trimmed (text));
    if (typed == "inf")
        return std::numeric_limits<double>::infinity ();

    std::string_view rest = typed;
    if (rest.starts_with ('+'))
        rest.remove_prefix (1);
    const bool hasDigits = !rest.empty () && (rest[0] == '.' || rest[0] == '-' || (rest[0] >= '0' && rest[0] <= '9'));
    if (!hasDigits || (typed[0] == '+' && rest[0] == '-'))
        return std::nullopt;
    double number = 0.0;
    const auto read = std::from_chars (rest.data (), rest.data () + rest.size (), number, std::chars_format::fixed);
    if (read.ec != std::errc () || !std::isfinite (number))
        return std::nullopt;

    rest.remove_prefix (static_cast<std::size_t> (read.ptr - rest.data ()));
    rest = Trimmed (rest);
    if (unit.empty () && rest == ":1")
        return number;
    if (rest.starts_with ('k'))
    {
        number *= 1000.0;
        rest.remove_prefix (1);
    }
    return rest.empty () || rest == Lowered (unit) ? std::optional (number) : std::nullopt;
}

} // namespace tessaly
