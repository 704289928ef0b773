#include "text_analyzer.h"

#include "number_text.h"
#include <algorithm>
#include <cstring>
#include <string_view>

namespace tessaly
{

namespace
{

char LastOf (std::string_view text)
{
    return text.empty () ? '\0' : text.back ();
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

void RemoveBlanks (char* text)
{
    *std::remove (text, text + std::strlen (text), ' ') = '\0';
}

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

} // namespace tessaly
