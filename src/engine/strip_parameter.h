#pragma once

#include <cstdint>

namespace tessaly
{

/// The parameters of the strip by their index in storage, host and key points.
enum class StripParameter : std::int32_t
{
    drive = 0,
    attack = 1,
    release = 2,
    ratio = 3,
    knee = 4,
    driveOffset = 5,
    makeupAmount = 6,
    sideChainFreq = 7,
    sideChainGain = 8,
    sideChainQ = 9,
    highFreq = 10,
    highGain = 11,
    midFreq = 12,
    midGain = 13,
    midQ = 14,
    lowFreq = 15,
    lowGain = 16,
    totalGain = 17,
    equalizerBypass = 18,
    compressorBypass = 19,
    morph = 20,
    bypass = 21
};

inline constexpr std::int32_t kStripParameterCount = 22;

} // namespace tessaly
