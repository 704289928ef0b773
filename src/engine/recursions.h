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
    const double* weight = nullptr; // of the next samples, not owned: the caller's; null when no crossfade runs
    BiquadCoefs fading;             // these two only when one runs
    BiquadState fadingState;
};

/// What the level detector does to its distance (level_detector.h).
struct DetectorLaw
{
    double rise;        // A
    double fall;        // A / 8
    double approach;    // 2 A r
    double chord;       // A r
    double fastestFall; // the larger of -0.4 releaseCoef and where the attack's curve turns, -8 * 0.00018
};

/// Everything in the strip in which a sample waits for the one before it: the detector, the side chain's filters and
/// the equalizer. Each of the three alone leaves the processor idle most of the time; run on neighbouring stretches of
/// sound in one loop (BlockMath::run) they cost little more than the detector alone. A record of at most one chunk:
/// gathered from the stages, run, and given back to them. Unset but for what is gathered: zeros would cost time.
struct Recursions
{
    DetectorLaw detector;
    double detected; // the detector's level

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
