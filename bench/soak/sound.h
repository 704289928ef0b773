#pragma once

#include "chance.h"

#include <vector>

namespace tessaly::soak
{

/// What goes into a block.
struct Sound
{
    std::vector<float> samples;
    bool isFinite = true; ///< false with an infinity or a NaN in it
};

/// Noise, silence, a tone's edge, denormals, huge values, now and then poison. Huge is 1e30, which leaves room for the
/// strip's gains below the largest float.
Sound MakeSound (Chance& chance, std::size_t count);

} // namespace tessaly::soak
