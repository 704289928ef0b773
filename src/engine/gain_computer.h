#pragma once

#include <cstdint>

namespace tessaly
{

// Static curve of the compressor. Levels are log10 of an amplitude ratio to the threshold. Pure functions, any thread.

/// Knee shapes as parameters store them; any other number means hard.
enum Knee : std::uint16_t
{
    kSoftKnee = 0,   // a quadratic blend 26 dB to either side of the threshold
    kMiddleKnee = 1, // likewise over 10 dB
    kHardKnee = 2
};

/// The knee in force: a threshold of exactly 0 dB is always hard.
std::uint16_t effectiveKnee (double thresholdDb, std::uint16_t knee);

/// The blend of a knee: curvature (level + halfWidth)^2 within halfWidth of the threshold.
struct KneeCurve
{
    double halfWidth; // 0 for a hard knee
    double curvature;
};

KneeCurve kneeCurve (std::uint16_t knee);

/// How far the level counts as over the threshold: 0.0 below the knee, the level itself above it.
double shapedLevel (double level, std::uint16_t knee);

/// Linear gain 10^(-slope shaped).
/// @param shaped  of shapedLevel; 0.0 yields exactly 1.0
/// @param slope   1 - 1/ratio
double compressionGain (double shaped, double slope);

} // namespace tessaly
