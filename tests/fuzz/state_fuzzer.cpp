// A stored state, whole, through the processor half as a host gives it.

#include "instances.h"
#include <cstdint>

using namespace tessaly::fuzz;

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    static Processor processor; // one for all: making it takes far longer than reading
    processor.Load ({ reinterpret_cast<const char*> (data), size });
    const auto first = processor.Save ();
    Demand (first.size () == 724 + 4 * tessaly::kStripParameterCount);
    // The values; big-endian, they order from 0 to 1 like their bytes.
    const std::string one ("\x3f\x80\0\0", 4);
    const std::string minusZero ("\x80\0\0\0", 4);
    for (std::size_t i = 4; i < 92; i += 4)
        Demand (first.substr (i, 4) <= one || first.substr (i, 4) == minusZero);

    processor.Load (first); // may settle "Bypass", which a broken state leaves beside the section bypasses
    const auto second = processor.Save ();
    processor.Load (second);
    Demand (processor.Save () == second);
    return 0;
}
