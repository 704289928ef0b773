#include "loaded_strip.h"
#include "parameter_names.h"
#include "typed_value.h"

#include <tuple>

using namespace tessaly::render;
using namespace tessaly::test;

namespace
{

struct TypedValues : LoadedStrip
{
    ParameterNames names{ parameters };

    double Step (const std::string& name, const std::string& text) const
    {
        const auto& entry = names.Find (name);
        return parameters.ToPlain (entry.info.id, TypedValue (parameters, entry, text));
    }
};

} // namespace

TEST_CASE_FIXTURE (TypedValues, "What a parameter shows at any step can be typed and leads back to that step")
{
    CHECK (names.Entries ().size () == kParameterCount);
    for (const auto& entry : names.Entries ())
    {
        const auto id = entry.info.id;
        const double last = parameters.ToPlain (id, 1.0);
        for (double step = parameters.ToPlain (id, 0.0); step <= last; ++step)
        {
            const double normalized = parameters.ToNormalized (id, step);
            const std::string shown = ValueText (parameters, entry.info, normalized);
            INFO (entry.name << " at step " << step << " shows " << shown);
            CHECK (TypedValue (parameters, entry, shown) == normalized);
        }
    }
}

TEST_CASE_FIXTURE (TypedValues, "Values are typed as on the panel, untitled parameters by names of our own")
{
    // Preferred numbers R40 from 16 Hz: the 84th after it is 2000 Hz, the 60th 500 Hz.
    for (const auto& [name, text, step] : std::initializer_list<std::tuple<const char*, const char*, double>>{
             { "Mid F", " 2 kHz ", 84 },
             { "Mid F", "2000hz", 84 },
             { "High F", "500", 60 }, // the scale's low end
             { "Mid G", "-3", 150 },  // 0.1 dB a step, 0 dB at 180
             { "Mid G", "+18.0 dB", 360 },
             { "Ratio", "inf", 120 },
             { "Knee", "hard", 2 },
             { "Knee", "1", 1 },
             { "Bypass", "ON", 1 },
             { "MAKEUP  AMOUNT", "0.25", 50 } })
    {
        INFO (name << " = " << text);
        CHECK (Step (name, text) == step);
    }
}
