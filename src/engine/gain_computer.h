#pragma once

#include <cstdint>

namespace tessaly
{

// Static curve of the compressor, the same for what sounds (BlockMath::gains) and for what is drawn
// (Compressor::compressorCurveDb). Levels are log10 of an amplitude ratio to the threshold. Pure functions, any thread.

/// Knee shapes as parameters store them; any other number means hard.
enum Knee : std::uint16_t
{
    kSoftKnee = 0,   // a quadratic blend 26 dB to either side of the threshold
    kMiddleKnee = 1, // likewise over 10 dB
    kHardKnee = 2
};

/// The blend of a knee: curvature (level + halfWidth)^2 within halfWidth of the threshold.
struct KneeCurve
{
    double halfWidth; // 0 for a hard knee
    double curvature;
};

/// The knee in force: a threshold of exactly 0 dB is always hard.
KneeCurve kneeCurve (double thresholdDb, std::uint16_t knee);

/// How far the level counts as over the threshold: 0 below the knee, the level itself above it. The gain is
/// 10^(-slope shapedLevel). Without a branch, for vectors; `static` for the reason told in biquad.h.
static inline double shapedLevel (double level, const KneeCurve& knee)
{
    const double intoKnee = level + knee.halfWidth;
    const double inKnee = knee.curvature * (intoKnee * intoKnee);
    const double over = level > knee.halfWidth ? level : inKnee;
    return level > -knee.halfWidth ? over : 0.0;
}

} // namespace tessaly
