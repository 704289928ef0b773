#pragma once

#include <cstdint>
#include <limits>

namespace tessaly
{

/// Peak follower that runs once a block: rises at once, falls by 0.08 of the distance a block, whatever its length.
///     held[b] = max in block,                              if that is above held[b-1]
///     held[b] = held[b-1] + 0.08 (max in block - held[b-1])   otherwise
/// It sees the positive half of the wave, and of the negative half only what lies beyond -1. Audio thread.
class StripMeter
{
public:
    void beginBlock (std::uint32_t sampleCount);
    void feed (double v); ///< exactly sampleCount times a block
    /// The same for `samples` samples at once, of which `highest` is the highest as compared: 0 or above.
    void feedHighest (double highest, std::uint32_t samples);
    /// What a sample counts as.
    static double compared (double v) { return v < -1.0 ? -v : v; }
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

inline void StripMeter::feed (double v)
{
    feedHighest (compared (v), 1);
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
