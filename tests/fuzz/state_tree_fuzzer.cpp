// The tree of chunks behind the values of a stored state, and what the engine makes of it.

#include "instances.h"
#include <cstring>

using namespace tessaly;
using namespace tessaly::fuzz;

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    static Strip strip;
    strip.Load ({ reinterpret_cast<const char*> (data), size });
    Demand (std::memchr (strip.effect.GetKeyPointName (), 0, kTextSize) != nullptr);
    for (std::int32_t i = 0; i < kStripParameterCount; ++i)
        Demand (strip.effect.GetParameter (i) >= 0.0f && strip.effect.GetParameter (i) <= 1.0f);
    Demand (strip.SoundsFinite ());

    const auto stored = strip.Save ();
    strip.Load (stored);
    Demand (strip.effect.StateFault ().empty ());
    Demand (strip.Save () == stored);
    return 0;
}
