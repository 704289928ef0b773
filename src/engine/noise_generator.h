#pragma once

#include <cstdint>

namespace tessaly
{

/// White noise with peaks of -236 dB that keeps the recursive filters out of denormal numbers. Its source is the 15-bit
/// linear congruential generator that the C standard prints as an example of `rand`, with the same seed in every
/// instance, so that two renders are equal bit by bit and no library state is shared.
class NoiseGenerator
{
public:
    double next () ///< between -1.6384e-12 and 1.6383e-12
    {
        state = state * 1103515245U + 12345U;
        const auto r = static_cast<std::int32_t> (state / 65536U % 32768U);
        return (r - 16384) * 1e-16;
    }

private:
    std::uint32_t state = 1;
};

} // namespace tessaly
