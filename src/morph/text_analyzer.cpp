#include "text_analyzer.h"

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
constexpr double kInfiniteRatio = 3000.0; // the last entry of the scale

void RemoveBlanks (char* text)
{
    *std::remove (text, text + std::strlen (text), ' ') = '\0';
}

char LastOf (std::string_view text)
{
    return text.empty () ? '\0' : text.back ();
}

bool IsKilo (char c)
{
    return c == 'k' || c == 'K';
}

/// The small factors are the float ones, as the values that they make are.
double FactorOf (char suffix)
{
    switch (suffix)
    {
    case 'n':
        return 1e-9f;
    case 'u':
        return 1e-6f;
    case 'm':
        return 0.001f;
    case 'k':
        return 1000.0;
    case 'M':
        return 1000000.0;
    default:
        return 1.0;
    }
}

} // namespace

bool ZTextAnalyzerReal::IsValid (char* text)
{
    RemoveBlanks (text);
    const std::string_view all = text;
    const auto length = ParseNumber (all).length;
    if (all.empty () || length == all.size ())
        return !all.empty ();
    return length > 0 && length + 1 == all.size () && std::string_view ("numkM").find (all.back ()) != all.npos;
}

float ZTextAnalyzerReal::ToValue (const char* text)
{
    return static_cast<float> (ParseNumber (text).value * FactorOf (LastOf (text)));
}

bool ZK2XTextAnalyzer::IsValid (char* text)
{
    RemoveBlanks (text);
    std::string_view number = text;
    if (IsKilo (LastOf (number)))
        number.remove_suffix (1);
    return !number.empty () && number.find_first_not_of ("+-0123456789.") == number.npos;
}

float ZK2XTextAnalyzer::ToValue (const char* text)
{
    const auto number = ParseNumber (text).value;
    return valueToStep (parameterIndex, IsKilo (LastOf (text)) ? number * 1000.0 : number);
}

bool ZRatioTextAnalyzer::IsValid (char* text)
{
    if (ZK2XTextAnalyzer::IsValid (text))
        return true;
    std::transform (text, text + std::strlen (text), text,
                    [] (char c) { return c >= 'a' && c <= 'z' ? static_cast<char> (c - 'a' + 'A') : c; });
    return text == kInfinite;
}

float ZRatioTextAnalyzer::ToValue (const char* text)
{
    return text == kInfinite ? valueToStep (parameterIndex, kInfiniteRatio) : ZK2XTextAnalyzer::ToValue (text);
}

} // namespace tessaly
