#pragma once

#include "biquad.h"

namespace tessaly
{

/// Everything in the strip that has to wait for its own last sample, side by side: the detector, the side chain's
/// filters and the equalizer, in their steady state. Each of the three alone leaves the processor idle most of the
/// time; run on neighbouring stretches of sound in one loop (BlockMath::run) they cost little more than the detector
/// alone. A record of one chunk: gathered from the stages, run, and given back to them.
struct Recursions
{
    // Level detector (level_detector.h): A, A/8, 2 A r, A r, the fastest fall, and the level.
    double rise;
    double fall;
    double approach;
    double chord;
    double fastestFall;
    double detected;

    // Side chain: of first order, then of second.
    BiquadCoefs highPass;
    BiquadState highPassState;
    BiquadCoefs sideChainEq;
    BiquadState sideChainEqState;

    // Equalizer: first, second, first order.
    BiquadCoefs low;
    BiquadState lowState;
    BiquadCoefs mid;
    BiquadState midState;
    BiquadCoefs high;
    BiquadState highState;
};

} // namespace tessaly
