#include "strip_text_analyzer.h"

#include "ascii_case.h"
#include "number_text.h"
#include "value_scales.h"
#include <algorithm>
#include <cstring>
#include <string_view>

namespace tessaly
{

namespace
{

constexpr std::string_view kInfinite = "INF";
constexpr double kInfiniteRatio = ratioValue.back ();

bool EndsWithKilo (std::string_view text)
{
    return text.ends_with ('k') || text.ends_with ('K');
}

} // namespace

bool ZK2XTextAnalyzer::IsValid (char* text)
{
    RemoveBlanks (text);
    std::string_view number = text;
    if (EndsWithKilo (number))
        number.remove_suffix (1);
    return !number.empty () && number.find_first_not_of ("+-0123456789.") == number.npos;
}

float ZK2XTextAnalyzer::ToValue (const char* text)
{
    const auto number = ParseNumber (text).value;
    return valueToStep (parameterIndex, EndsWithKilo (text) ? number * 1000.0 : number);
}

bool ZRatioTextAnalyzer::IsValid (char* text)
{
    if (ZK2XTextAnalyzer::IsValid (text))
        return true;
    std::transform (text, text + std::strlen (text), text, AsciiUpper);
    return text == kInfinite;
}

float ZRatioTextAnalyzer::ToValue (const char* text)
{
    return text == kInfinite ? valueToStep (parameterIndex, kInfiniteRatio) : ZK2XTextAnalyzer::ToValue (text);
}

} // namespace tessaly
