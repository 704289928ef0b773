#pragma once

#include "block_math.h"

#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// The weights of the crossfades that run in one stretch of samples (blend_biquad.h). Sections that began theirs
/// together, as after a morph, share a row. Audio thread; lives as long as the stretch.
class FadeWeights
{
public:
    explicit FadeWeights (std::size_t sampleCount) ///< at most kChunkSamples
        : count (sampleCount)
    {
    }

    /// @param samplesDone  of the crossfade, at the beginning of the stretch
    /// @param fadeLength   in samples, of all sections alike
    /// @return a weight for each sample of the stretch
    const double* row (std::int32_t samplesDone, double fadeLength);

private:
    static constexpr std::size_t kMostRows = 4; // the strip's sections that crossfade

    std::size_t count;
    std::size_t rowCount = 0;
    std::int32_t beginnings[kMostRows];
    double rows[kMostRows][kChunkSamples];
    const BlockMath& math = blockMath ();
};

} // namespace tessaly
