#include "number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>
#include <utility>

namespace tessaly
{

namespace
{

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

std::string PaddedLeft (std::string text, int width)
{
    const auto size = static_cast<std::size_t> (std::max (width, 0));
    if (text.size () < size)
        text.insert (0, size - text.size (), ' ');
    return text;
}

/// "0x" counts only with a digit after it; without one the number is the 0.
bool HasHexPrefix (std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
    if (!text.starts_with ("0x") && !text.starts_with ("0X"))
        return false;
    text.remove_prefix (2);
    if (text.starts_with ('.'))
        text.remove_prefix (1);
    return !text.empty () && kDigits.find (text[0]) != std::string_view::npos;
}

/// Whether a number that no double holds is too great, and not too small: the place of its first digit other than 0
/// before the point, plus its exponent, is above 0.
bool IsTooGreat (std::string_view number, bool hex)
{
    const auto exponentAt = std::min (number.find_first_of (hex ? "pP" : "eE"), number.size ());
    const auto mantissa = number.substr (0, exponentAt);
    const auto point = std::min (mantissa.find ('.'), mantissa.size ());
    const auto first = std::min (mantissa.find_first_not_of ("0."), mantissa.size ());
    auto place = static_cast<double> (point) - static_cast<double> (first);
    if (hex)
        place *= 4.0;

    auto exponent = number.substr (std::min (exponentAt + 1, number.size ()));
    const bool negative = exponent.starts_with ('-');
    if (negative || exponent.starts_with ('+'))
        exponent.remove_prefix (1);
    double size = 0.0;
    for (const char digit : exponent)
        size = size * 10.0 + (digit - '0');
    return place + (negative ? -size : size) > 0.0;
}

} // namespace

std::string FixedText (double value, int width, int precision)
{
    std::array<char, 400> digits; // the greatest double has 309 before the point
    const auto end =
        std::to_chars (digits.data (), digits.data () + digits.size (), value, std::chars_format::fixed, precision);
    return PaddedLeft (std::string (digits.data (), end.ptr), width);
}

std::string IntegerText (std::int64_t value, int width, char pad)
{
    std::array<char, 24> digits;
    const auto end = std::to_chars (digits.data (), digits.data () + digits.size (), value);
    std::string text (digits.data (), end.ptr);
    const auto size = static_cast<std::size_t> (std::max (width, 0));
    if (pad == '0' && text.size () < size)
        text.insert (value < 0 ? 1 : 0, size - text.size (), '0');
    return PaddedLeft (std::move (text), width);
}

ParsedNumber ParseNumber (std::string_view text)
{
    auto rest = text.substr (std::min (text.find_first_not_of (kWhiteSpace), text.size ()));
    const bool negative = rest.starts_with ('-');
    if (negative || rest.starts_with ('+'))
        rest.remove_prefix (1);
    if (rest.starts_with ('-')) // a second sign, which from_chars would take
        return {};

    const bool hex = HasHexPrefix (rest);
    if (hex)
        rest.remove_prefix (2);

    double value = 0.0;
    const auto [end, error] = std::from_chars (rest.data (), rest.data () + rest.size (), value,
                                               hex ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::invalid_argument)
        return {};
    const auto length = static_cast<std::size_t> (end - rest.data ());
    if (error == std::errc::result_out_of_range)
        value = IsTooGreat (rest.substr (0, length), hex) ? std::numeric_limits<double>::infinity () : 0.0;
    return { negative ? -value : value, text.size () - rest.size () + length };
}

} // namespace tessaly
