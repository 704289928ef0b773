// The SIMD code. Compiled once for each set of vector instructions (SSE2, AVX2, AVX-512), under the name that
// TESSALY_BLOCK_MATH gives. Nothing but the one table leaves this file, and it includes no inline functions but `static`
// ones: a function of the standard library compiled for AVX-512 here could be the copy that the linker keeps for
// everybody.

#include "block_math.h"
#include "detector_floor.h"
#include "gain_computer.h"
#include "noise_generator.h"
#include "recursions.h"

#ifndef TESSALY_BLOCK_MATH
#define TESSALY_BLOCK_MATH blockMathPlain
#endif

namespace tessaly
{

extern const BlockMath TESSALY_BLOCK_MATH;

namespace
{

using Bits = unsigned long long;
static_assert (sizeof (Bits) == sizeof (double));

Bits bitsOf (double x)
{
    return __builtin_bit_cast(Bits, x);
}

double numberOf (Bits x)
{
    return __builtin_bit_cast(double, x);
}

constexpr Bits kFraction = 0x000FFFFFFFFFFFFF;
constexpr Bits kOne = 0x3FF0000000000000;      // 1.0
constexpr Bits kRootHalf = 0x3FE6A09E667F3BCD; // sqrt (1/2)
constexpr Bits kTwo52 = 0x4330000000000000;    // 2^52: a number whose last bit is worth 1

/// log2 of a positive normal number: x = 2^k m with m from sqrt (1/2) to sqrt (2), and for f = (m - 1) / (m + 1)
///     ln m = 2 (f + f^3/3 + f^5/5 + ...),   |f| <= 0.1716
/// Seven terms after the first leave 1e-14.
double log2Of (double x)
{
    const Bits shifted = bitsOf (x) + (kOne - kRootHalf);
    const double k = numberOf ((shifted >> 52) | kTwo52) - (4503599627370496.0 + 1023.0);
    const double m = numberOf ((shifted & kFraction) + kRootHalf);
    const double f = (m - 1.0) / (m + 1.0);
    const double f2 = f * f;
    double series = 1.0 / 15.0;
    series = series * f2 + 1.0 / 13.0;
    series = series * f2 + 1.0 / 11.0;
    series = series * f2 + 1.0 / 9.0;
    series = series * f2 + 1.0 / 7.0;
    series = series * f2 + 1.0 / 5.0;
    series = series * f2 + 1.0 / 3.0;
    constexpr double kTwoOverLn2 = 2.8853900817779268;
    return k + (f + f * (f2 * series)) * kTwoOverLn2;
}

/// 2^y for y from -1020 to 1020: the whole part goes into the exponent, and for the rest r from -1/2 to 1/2
///     2^r = sum of (r ln 2)^n / n!
/// Eleven terms after the first leave 1e-14. Even and odd ones apart wait for each other half as long.
double exp2Of (double y)
{
    constexpr double kRounding = 6755399441055744.0; // 1.5 * 2^52: adding it leaves the whole part in the last bits
    constexpr double kLn2 = 0.6931471805599453;
    const double shifted = y + kRounding;
    const double t = (y - (shifted - kRounding)) * kLn2;
    const double t2 = t * t;
    double even = 1.0 / 3628800.0;
    even = even * t2 + 1.0 / 40320.0;
    even = even * t2 + 1.0 / 720.0;
    even = even * t2 + 1.0 / 24.0;
    even = even * t2 + 1.0 / 2.0;
    even = even * t2 + 1.0;
    double odd = 1.0 / 39916800.0;
    odd = odd * t2 + 1.0 / 362880.0;
    odd = odd * t2 + 1.0 / 5040.0;
    odd = odd * t2 + 1.0 / 120.0;
    odd = odd * t2 + 1.0 / 6.0;
    odd = odd * t2 + 1.0;
    return (odd * t + even) * numberOf ((bitsOf (shifted) << 52) + kOne);
}

/// A linear congruential generator can be moved on by several numbers at once: n steps are
///     state a^n + c (a^(n-1) + ... + 1)
/// so that a row of numbers comes from one state, each by a factor and a summand of its own.
constexpr std::size_t kLanes = 16;

struct NoiseLanes
{
    std::uint32_t factor[kLanes];
    std::uint32_t summand[kLanes];
};

constexpr NoiseLanes makeNoiseLanes ()
{
    NoiseLanes lanes{};
    std::uint32_t factor = 1;
    std::uint32_t summand = 0;
    for (std::size_t i = 0; i < kLanes; ++i)
    {
        factor *= kNoiseFactor;
        summand = summand * kNoiseFactor + kNoiseSummand;
        lanes.factor[i] = factor;
        lanes.summand[i] = summand;
    }
    return lanes;
}

constexpr NoiseLanes kNoiseLanes = makeNoiseLanes ();

double noiseOf (std::uint32_t state)
{
    return (static_cast<std::int32_t> ((state >> 16) & 0x7FFF) - 16384) * 1e-16;
}

bool isFinite (const float* samples, std::size_t count)
{
    std::int32_t largest = 0; // of the bits without sign, which order like the magnitudes
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::int32_t magnitude = __builtin_bit_cast(std::int32_t, samples[i]) & 0x7FFFFFFF;
        largest = magnitude > largest ? magnitude : largest;
    }
    return largest < 0x7F800000;
}

bool addNoise (const float* __restrict in, std::uint32_t& state, double* __restrict out, std::size_t count)
{
    std::uint32_t present = state;
    std::size_t i = 0;
    for (; i + kLanes <= count; i += kLanes)
    {
        for (std::size_t lane = 0; lane < kLanes; ++lane)
            out[i + lane] = static_cast<double> (in[i + lane]) +
                            noiseOf (present * kNoiseLanes.factor[lane] + kNoiseLanes.summand[lane]);
        present = present * kNoiseLanes.factor[kLanes - 1] + kNoiseLanes.summand[kLanes - 1];
    }
    for (; i < count; ++i)
    {
        present = present * kNoiseFactor + kNoiseSummand;
        out[i] = static_cast<double> (in[i]) + noiseOf (present);
    }
    state = present;
    return isFinite (in, count);
}

void levels (const double* __restrict s, double floor, double thresholdLog, double* __restrict level, std::size_t count)
{
    constexpr double kLog10Of2 = 0.3010299956639812;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double m = s[i] < 0.0 ? -s[i] : s[i];
        const double audible = log2Of (m) * kLog10Of2 - thresholdLog;
        level[i] = m >= floor ? audible : kFloorLevel;
    }
}

double gains (const double* __restrict level, const double* __restrict slope, const KneeCurve& knee,
              double* __restrict gain, std::size_t count)
{
    constexpr double kLog2Of10 = 3.321928094887362;
    constexpr double kLowestExponent = -1020.0;
    const KneeCurve curve = knee;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double exponent = -slope[i] * shapedLevel (level[i], curve) * kLog2Of10;
        gain[i] = exp2Of (exponent > kLowestExponent ? exponent : kLowestExponent);
    }
    double smallest = 1.0;
    for (std::size_t i = 0; i < count; ++i)
        smallest = gain[i] < smallest ? gain[i] : smallest;
    return smallest;
}

void scale (double* __restrict samples, const double* __restrict factor, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        samples[i] *= factor[i];
}

void logistic (double* __restrict weight, double start, double step, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        weight[i] = 1.0 / (1.0 + exp2Of (-(start + static_cast<double> (static_cast<std::int32_t> (i)) * step)));
}

void glide (double* __restrict value, std::size_t count, double current, double target, double beyond,
            const double* __restrict left)
{
    const double direction = target > current ? 1.0 : -1.0;
    double distance = (target - current) * direction + beyond;
    const auto valueAt = [&] (std::size_t lane)
    {
        const double toGo = distance * left[lane] - beyond;
        return target - direction * (toGo > 0.0 ? toGo : 0.0);
    };
    std::size_t i = 0;
    for (; i + kGlideLanes <= count; i += kGlideLanes)
    {
        for (std::size_t lane = 0; lane < kGlideLanes; ++lane)
            value[i + lane] = valueAt (lane);
        distance *= left[kGlideLanes - 1];
    }
    for (std::size_t lane = 0; i < count; ++lane, ++i)
        value[i] = valueAt (lane);
}

/// Two sections in one step.
using Pair = double __attribute__ ((vector_size (16)));

SectionCoefs<Pair> paired (const BiquadCoefs& a, const BiquadCoefs& b)
{
    return { Pair{ a.c0, b.c0 }, Pair{ a.c1, b.c1 }, Pair{ a.c2, b.c2 }, Pair{ a.c3, b.c3 }, Pair{ a.c4, b.c4 } };
}

SectionState<Pair> paired (const BiquadState& a, const BiquadState& b)
{
    return { Pair{ a.s0, b.s0 }, Pair{ a.s1, b.s1 }, Pair{ a.s2, b.s2 }, Pair{ a.s3, b.s3 } };
}

void unpair (const SectionState<Pair>& both, BiquadState& a, BiquadState& b)
{
    a = { both.s0[0], both.s1[0], both.s2[0], both.s3[0] };
    b = { both.s0[1], both.s1[1], both.s2[1], both.s3[1] };
}

constexpr struct Ones
{
    double weight[kChunkSamples];
    constexpr Ones ()
        : weight ()
    {
        for (double& each : weight)
            each = 1.0;
    }
} kNoFade;

/// The two filters of a crossfade as the halves of a vector, both with the same input. A section that is in none has an
/// outgoing filter of zeros and a weight of 1.
class Crossfade
{
public:
    explicit Crossfade (const BlendedSection& section)
        : c (paired (section.live, section.weight ? section.fading : BiquadCoefs{}))
        , s (paired (section.liveState, section.weight ? section.fadingState : BiquadState{}))
        , weight (section.weight ? section.weight : kNoFade.weight)
    {
    }

    double firstOrder (double x, std::size_t i) { return blend (throughFirstOrder (c, s, Pair{ x, x }), i); }
    double secondOrder (double x, std::size_t i) { return blend (throughSecondOrder (c, s, Pair{ x, x }), i); }

    void scatter (BlendedSection& section, std::size_t count) const
    {
        unpair (s, section.liveState, section.fadingState);
        if (section.weight)
            section.weight += count;
    }

private:
    double blend (Pair outputs, std::size_t i) const { return outputs[1] + weight[i] * (outputs[0] - outputs[1]); }

    SectionCoefs<Pair> c;
    SectionState<Pair> s;
    const double* weight;
};

/// The detector's next level (level_detector.h). The way up and the way down are both worked out, and largest and
/// smallest values choose: which way a sample goes is hard to foresee, and a wrong guess costs more. With D the
/// distance,
///     rise = A D^2 + 2 A r D        at most 0.925 D
///     fall = A D^2 / 8 + 2 A r D    at most its chord A r D, which meets it at 0 and where it turns, at -8 r
/// Above 0 the chord lies below the rise, below 0 the 0.925 D below the fall: the larger one holds. Below -8 r the
/// chord leads under the fastest fall, which holds then.
inline double follow (const DetectorLaw& r, double detected, double level)
{
    constexpr double kLargestRise = 0.925; // of the distance
    const double distance = level - detected;
    // What the level brings is worked out ahead: from one sample to the next it is two steps and three choices.
    const double rise = distance * (r.rise * level + r.approach - r.rise * detected) + detected;
    const double fall = distance * (r.fall * level + r.approach - r.fall * detected) + detected;
    const double highest = distance * kLargestRise + detected;
    const double chord = distance * r.chord + detected;
    const double lowest = detected + r.fastestFall;
    const double limitedRise = rise < highest ? rise : highest;
    const double limitedFall = fall < chord ? fall : chord;
    const double next = limitedRise > limitedFall ? limitedRise : limitedFall;
    return next > lowest ? next : lowest;
}

/// No crossfade runs: the side chain and the equalizer begin with the same two kinds of section, which go as pairs.
template <bool detects, bool listens, bool equalizes>
void runSteady (Recursions& r, double* __restrict level, double* __restrict sideChain, double* __restrict y,
                std::size_t count)
{
    const DetectorLaw detector = r.detector;
    double detected = r.detected;
    const auto highPassAndLow = paired (r.highPass, r.low.live);
    const auto sideChainEqAndMid = paired (r.sideChainEq.live, r.mid.live);
    auto highPassAndLowState = paired (r.highPassState, r.low.liveState);
    auto sideChainEqAndMidState = paired (r.sideChainEq.liveState, r.mid.liveState);
    const BiquadCoefs highPass = r.highPass, sideChainEq = r.sideChainEq.live;
    const BiquadCoefs low = r.low.live, mid = r.mid.live, high = r.high.live;
    BiquadState highPassState = r.highPassState, sideChainEqState = r.sideChainEq.liveState;
    BiquadState lowState = r.low.liveState, midState = r.mid.liveState, highState = r.high.liveState;
    for (std::size_t i = 0; i < count; ++i)
    {
        if constexpr (detects)
            level[i] = detected = follow (detector, detected, level[i]);
        if constexpr (listens && equalizes)
        {
            const Pair first = throughFirstOrder (highPassAndLow, highPassAndLowState, Pair{ sideChain[i], y[i] });
            const Pair second = throughSecondOrder (sideChainEqAndMid, sideChainEqAndMidState, first);
            sideChain[i] = second[0];
            y[i] = throughFirstOrder (high, highState, second[1]);
        }
        else if constexpr (listens)
            sideChain[i] = throughSecondOrder (sideChainEq, sideChainEqState,
                                               throughFirstOrder (highPass, highPassState, sideChain[i]));
        else if constexpr (equalizes)
            y[i] = throughFirstOrder (high, highState,
                                      throughSecondOrder (mid, midState, throughFirstOrder (low, lowState, y[i])));
    }
    if constexpr (listens && equalizes)
    {
        unpair (highPassAndLowState, highPassState, lowState);
        unpair (sideChainEqAndMidState, sideChainEqState, midState);
    }
    if constexpr (detects)
        r.detected = detected;
    if constexpr (listens)
    {
        r.highPassState = highPassState;
        r.sideChainEq.liveState = sideChainEqState;
    }
    if constexpr (equalizes)
    {
        r.low.liveState = lowState;
        r.mid.liveState = midState;
        r.high.liveState = highState;
    }
}

/// At least one crossfade runs. Sections without one go along: a set-up with every number of crossfades would be
/// sixteen loops, and the detector keeps the others waiting anyway.
template <bool detects, bool listens, bool equalizes>
void runFading (Recursions& r, double* __restrict level, double* __restrict sideChain, double* __restrict y,
                std::size_t count)
{
    const DetectorLaw detector = r.detector;
    double detected = r.detected;
    const BiquadCoefs highPass = r.highPass;
    BiquadState highPassState = r.highPassState;
    Crossfade sideChainEq (r.sideChainEq), low (r.low), mid (r.mid), high (r.high);
    for (std::size_t i = 0; i < count; ++i)
    {
        if constexpr (detects)
            level[i] = detected = follow (detector, detected, level[i]);
        if constexpr (listens)
            sideChain[i] = sideChainEq.secondOrder (throughFirstOrder (highPass, highPassState, sideChain[i]), i);
        if constexpr (equalizes)
            y[i] = high.firstOrder (mid.secondOrder (low.firstOrder (y[i], i), i), i);
    }
    if constexpr (detects)
        r.detected = detected;
    if constexpr (listens)
    {
        r.highPassState = highPassState;
        sideChainEq.scatter (r.sideChainEq, count);
    }
    if constexpr (equalizes)
    {
        low.scatter (r.low, count);
        mid.scatter (r.mid, count);
        high.scatter (r.high, count);
    }
}

template <bool detects, bool listens, bool equalizes>
void runParts (Recursions& r, double* level, double* sideChain, double* y, std::size_t count)
{
    const bool sideChainFades = listens && r.sideChainEq.weight;
    const bool equalizerFades = equalizes && (r.low.weight || r.mid.weight || r.high.weight);
    if (sideChainFades || equalizerFades)
        runFading<detects, listens, equalizes> (r, level, sideChain, y, count);
    else
        runSteady<detects, listens, equalizes> (r, level, sideChain, y, count);
}

void run (Recursions& recursions, double* level, double* sideChain, double* y, std::size_t count)
{
    if (level && sideChain && y)
        runParts<true, true, true> (recursions, level, sideChain, y, count);
    else if (level && sideChain)
        runParts<true, true, false> (recursions, level, sideChain, y, count);
    else if (level && y)
        runParts<true, false, true> (recursions, level, sideChain, y, count);
    else if (level)
        runParts<true, false, false> (recursions, level, sideChain, y, count);
    else if (sideChain && y)
        runParts<false, true, true> (recursions, level, sideChain, y, count);
    else if (sideChain)
        runParts<false, true, false> (recursions, level, sideChain, y, count);
    else if (y)
        runParts<false, false, true> (recursions, level, sideChain, y, count);
}

double roundToOutput (const double* __restrict y, float* __restrict out, std::size_t count)
{
    float highest = 0.0f;
    for (std::size_t i = 0; i < count; ++i)
    {
        const float rounded = static_cast<float> (y[i]);
        const float compared = rounded < -1.0f ? -rounded : rounded;
        out[i] = rounded;
        highest = compared > highest ? compared : highest;
    }
    return static_cast<double> (highest);
}

} // namespace

const BlockMath TESSALY_BLOCK_MATH = { addNoise, levels, gains, logistic, glide, scale, run, roundToOutput };

} // namespace tessaly
