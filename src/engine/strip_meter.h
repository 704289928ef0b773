#pragma once

#include <cstdint>
#include <limits>

namespace tessaly
{

/// Peak follower that runs once a block: rises at once, falls by 0.08 of the distance a block, whatever its length.
///     held[b] = max in block,                              if that is above held[b-1]
///     held[b] = held[b-1] + 0.08 (max in block - held[b-1])   otherwise
/// The output's meter sees the positive half of the wave, and of the negative half only what lies beyond -1
/// (BlockMath::roundToOutput). Audio thread.
class StripMeter
{
public:
    void beginBlock (std::uint32_t sampleCount);
    /// Takes `samples` samples, the last of which end the block; `highest` is the highest of them, 0 or above.
    void feedHighest (double highest, std::uint32_t samples);
    void clear () { held = 0.0; }             ///< forgets the level; the reading stays until the next block
    double reading () const { return value; } ///< linear, 0 and up; after the last whole block

private:
    void follow ();

    std::uint32_t sampleCountdown = 0;
    double peakInBlock = 0.0;
    double held = 0.0;
    double value = 0.0;
};

inline void StripMeter::beginBlock (std::uint32_t sampleCount)
{
    peakInBlock = 0.0;
    sampleCountdown = sampleCount;
}

inline void StripMeter::feedHighest (double highest, std::uint32_t samples)
{
    if (highest > peakInBlock)
        peakInBlock = highest;
    sampleCountdown -= samples;
    if (sampleCountdown == 0)
        follow ();
}

inline void StripMeter::follow ()
{
    constexpr double kFallPerBlock = 0.08;
    if (peakInBlock > held)
        held = peakInBlock;
    else
        held += kFallPerBlock * (peakInBlock - held);
    value = held;
    if (!(held <= std::numeric_limits<double>::max ()))
        held = 0.0; // an output beyond all numbers shows once
}

} // namespace tessaly
