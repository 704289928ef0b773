// What a user may type into a value field. The first byte chooses the parameter.

#include "channel_strip_parameters.h"
#include "instances.h"
#include "strip_text_analyzer.h"
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

using namespace tessaly;
using namespace tessaly::fuzz;

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string text (reinterpret_cast<const char*> (data) + 1, size - 1);
    ZTextAnalyzerReal real;
    ZK2XTextAnalyzer step (data[0] % (kStripParameterCount + 1));
    ZRatioTextAnalyzer ratio (IndexOf (StripParameter::ratio));
    for (ZTextAnalyzer* analyzer : std::initializer_list<ZTextAnalyzer*>{ &real, &step, &ratio })
    {
        std::vector<char> field (text.c_str (), text.c_str () + std::strlen (text.c_str ()) + 1); // of just that size
        if (!analyzer->IsValid (field.data ()))
            continue;
        const float value = analyzer->ToValue (field.data ());
        Demand (analyzer == &real || std::isfinite (value)); // a real one is as the C library reads it
    }
    return 0;
}
