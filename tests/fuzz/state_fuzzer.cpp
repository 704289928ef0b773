// A stored state, whole, through the processor half as a host gives it.

#include "processor.h"
#include <bit>
#include <cstdint>

using namespace tessaly::fuzz;

namespace
{

/// The values at the head of a state, as the processor writes it.
void DemandRanges (const std::string& state)
{
    for (std::size_t i = 4; i < 92; i += 4)
    {
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 4; ++k)
            bits = bits << 8 | static_cast<std::uint8_t> (state[i + k]);
        const auto value = std::bit_cast<float> (bits);
        Demand (value >= 0.0f && value <= 1.0f);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    static Processor processor; // one for all: making it takes far longer than reading
    processor.Load ({ reinterpret_cast<const char*> (data), size });
    const auto first = processor.Save ();
    Demand (first.size () == 812);
    DemandRanges (first);

    processor.Load (first); // may settle "Bypass", which a broken state leaves beside the section bypasses
    const auto second = processor.Save ();
    processor.Load (second);
    Demand (processor.Save () == second);
    return 0;
}
