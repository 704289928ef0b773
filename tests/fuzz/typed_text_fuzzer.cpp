// What a user may type into a value field. The first byte chooses the parameter.

#include "channel_strip_parameters.h"
#include "demand.h"
#include "strip_text_analyzer.h"
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

using namespace tessaly;
using namespace tessaly::fuzz;

namespace
{

/// @return the value of a text that the analyzer takes, 0 for another
float Type (ZTextAnalyzer& analyzer, const std::string& text)
{
    std::vector<char> field (text.c_str (), text.c_str () + std::strlen (text.c_str ()) + 1); // of just that size
    return analyzer.IsValid (field.data ()) ? analyzer.ToValue (field.data ()) : 0.0f;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string text (reinterpret_cast<const char*> (data) + 1, size - 1);
    ZTextAnalyzerReal real;
    ZK2XTextAnalyzer step (data[0] % (kStripParameterCount + 1));
    ZRatioTextAnalyzer ratio (IndexOf (StripParameter::ratio));
    Type (real, text); // may be infinite or none, as the C library reads it
    Demand (std::isfinite (Type (step, text)));
    Demand (std::isfinite (Type (ratio, text)));
    return 0;
}
