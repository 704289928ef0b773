#pragma once

#include "biquad.h"

namespace tessaly
{

/// A section that may be in a crossfade (blend_biquad.h): with a weight w for each sample, the output is
///     w * live + (1 - w) * fading
struct BlendedSection
{
    BiquadCoefs live;
    BiquadState liveState;
    BiquadCoefs fading; // all zero when no crossfade runs
    BiquadState fadingState;
    const double* weight = nullptr; // of the next samples, not owned: the caller's; null when no crossfade runs
};

/// Everything in the strip in which a sample waits for the one before it: the detector, the side chain's filters and
/// the equalizer. Each of the three alone leaves the processor idle most of the time; run on neighbouring stretches of
/// sound in one loop (BlockMath::run) they cost little more than the detector alone. A record of at most one chunk:
/// gathered from the stages, run, and given back to them.
struct Recursions
{
    // Level detector (level_detector.h): A, A/8, 2 A r, A r, the fastest fall, and the level.
    double rise = 0.0;
    double fall = 0.0;
    double approach = 0.0;
    double chord = 0.0;
    double fastestFall = 0.0;
    double detected = 0.0;

    // Side chain: of first order, then of second.
    BiquadCoefs highPass;
    BiquadState highPassState;
    BlendedSection sideChainEq;

    // Equalizer: first, second, first order.
    BlendedSection low;
    BlendedSection mid;
    BlendedSection high;
};

} // namespace tessaly
