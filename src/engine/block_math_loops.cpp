// Compiled once for each width of vectors, under the name that TESSALY_BLOCK_MATH gives. Nothing but the one table leaves
// this file, and it includes no inline functions: a function of the standard library compiled for wide vectors here
// could be the copy that the linker keeps for everybody.

#include "block_math.h"
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

/// a b + c, in one rounding where the processor has it: half the wait.
double multiplyAdd (double a, double b, double c)
{
#ifdef __FMA__
    return __builtin_fma (a, b, c);
#else
    return a * b + c;
#endif
}

constexpr Bits kFraction = 0x000FFFFFFFFFFFFF;
constexpr Bits kOne = 0x3FF0000000000000;      // 1.0
constexpr Bits kRootHalf = 0x3FE6A09E667F3BCD; // sqrt (1/2)
constexpr Bits kTwo52 = 0x4330000000000000;    // 2^52: a number whose last bit is worth 1

/// log2 of a positive normal number: x = 2^k m with m from sqrt (1/2) to sqrt (2), and for f = (m - 1) / (m + 1)
///     ln m = 2 (f + f^3/3 + f^5/5 + ...),   |f| <= 0.1716
/// Seven terms behind the first leave 1e-14.
double log2Of (double x)
{
    const Bits shifted = bitsOf (x) + (kOne - kRootHalf);
    const double k = numberOf ((shifted >> 52) | kTwo52) - (4503599627370496.0 + 1023.0);
    const double m = numberOf ((shifted & kFraction) + kRootHalf);
    const double f = (m - 1.0) / (m + 1.0);
    const double f2 = f * f;
    double series = 1.0 / 15.0;
    series = multiplyAdd (series, f2, 1.0 / 13.0);
    series = multiplyAdd (series, f2, 1.0 / 11.0);
    series = multiplyAdd (series, f2, 1.0 / 9.0);
    series = multiplyAdd (series, f2, 1.0 / 7.0);
    series = multiplyAdd (series, f2, 1.0 / 5.0);
    series = multiplyAdd (series, f2, 1.0 / 3.0);
    constexpr double kTwoOverLn2 = 2.8853900817779268;
    return k + (f + f * (f2 * series)) * kTwoOverLn2;
}

/// 2^y for y from -1020 to 0: the whole part goes into the exponent, and for the rest r from -1/2 to 1/2
///     2^r = sum of (r ln 2)^n / n!
/// Eleven terms behind the first leave 1e-14.
double exp2Of (double y)
{
    constexpr double kRounding = 6755399441055744.0; // 1.5 * 2^52: adding it leaves the whole part in the last bits
    constexpr double kLn2 = 0.6931471805599453;
    const double shifted = y + kRounding;
    const double t = (y - (shifted - kRounding)) * kLn2;
    double series = 1.0 / 39916800.0;
    series = multiplyAdd (series, t, 1.0 / 3628800.0);
    series = multiplyAdd (series, t, 1.0 / 362880.0);
    series = multiplyAdd (series, t, 1.0 / 40320.0);
    series = multiplyAdd (series, t, 1.0 / 5040.0);
    series = multiplyAdd (series, t, 1.0 / 720.0);
    series = multiplyAdd (series, t, 1.0 / 120.0);
    series = multiplyAdd (series, t, 1.0 / 24.0);
    series = multiplyAdd (series, t, 1.0 / 6.0);
    series = multiplyAdd (series, t, 1.0 / 2.0);
    series = multiplyAdd (series, t, 1.0);
    series = multiplyAdd (series, t, 1.0);
    return series * numberOf ((bitsOf (shifted) << 52) + kOne);
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

bool addNoise (const float* in, std::uint32_t& state, double* out, std::size_t count)
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

void levels (const double* s, double floor, double thresholdLog, double* level, std::size_t count)
{
    constexpr double kLog10Of2 = 0.3010299956639812;
    constexpr double kLowest = -1.5;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double m = s[i] < 0.0 ? -s[i] : s[i];
        const double audible = log2Of (m) * kLog10Of2 - thresholdLog;
        level[i] = m >= floor ? audible : kLowest;
    }
}

double gains (const double* level, const double* slope, double halfWidth, double curvature, double* gain,
              std::size_t count)
{
    constexpr double kLog2Of10 = 3.321928094887362;
    constexpr double kLowestExponent = -1020.0;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double intoKnee = level[i] + halfWidth;
        const double inKnee = curvature * (intoKnee * intoKnee);
        const double over = level[i] > halfWidth ? level[i] : inKnee;
        const double e = level[i] > -halfWidth ? over : 0.0;
        const double exponent = -slope[i] * e * kLog2Of10;
        gain[i] = exp2Of (exponent > kLowestExponent ? exponent : kLowestExponent);
    }
    double smallest = 1.0;
    for (std::size_t i = 0; i < count; ++i)
        smallest = gain[i] < smallest ? gain[i] : smallest;
    return smallest;
}

double throughSection (const BiquadCoefs& c, BiquadState& s, double x)
{
    const double known = multiplyAdd (c.c1, s.s0, multiplyAdd (c.c2, s.s1, c.c4 * s.s3));
    const double y = multiplyAdd (c.c3, s.s2, multiplyAdd (c.c0, x, known)); // the last output last: all wait for it
    s = { x, s.s0, y, s.s2 };
    return y;
}

double throughFirstOrder (const BiquadCoefs& c, BiquadState& s, double x)
{
    const double y = multiplyAdd (c.c3, s.s2, multiplyAdd (c.c0, x, c.c1 * s.s0));
    s.s0 = x;
    s.s2 = y;
    return y;
}

template <bool detects, bool listens, bool equalizes>
void runParts (Recursions& recursions, double* level, double* sideChain, double* y, std::size_t count)
{
    constexpr double kLargestRise = 0.925; // of the distance
    Recursions r = recursions;
    for (std::size_t i = 0; i < count; ++i)
    {
        if constexpr (detects)
        {
            // What the level brings is worked out ahead, so that from one sample to the next it is a product, a
            // difference, a limit, a product and a sum.
            const double L = level[i];
            const double D = L - r.detected;
            if (D > 0)
            {
                const double rise = multiplyAdd (-r.rise, r.detected, multiplyAdd (r.rise, L, r.approach));
                r.detected = multiplyAdd (D, rise < kLargestRise ? rise : kLargestRise, r.detected);
            }
            else
            {
                const double d = D > r.deepest ? D : r.deepest;
                const double pull = multiplyAdd (-r.fall, r.detected, multiplyAdd (r.fall, L, r.approach));
                const double fall = d * (pull > r.slowest ? pull : r.slowest);
                r.detected += fall > r.fastestFall ? fall : r.fastestFall;
            }
            level[i] = r.detected;
        }
        if constexpr (listens)
            sideChain[i] = throughSection (r.sideChainEq, r.sideChainEqState,
                                           throughFirstOrder (r.highPass, r.highPassState, sideChain[i]));
        if constexpr (equalizes)
            y[i] = throughFirstOrder (r.high, r.highState,
                                      throughSection (r.mid, r.midState, throughFirstOrder (r.low, r.lowState, y[i])));
    }
    recursions = r;
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
    else if (sideChain)
        runParts<false, true, false> (recursions, level, sideChain, y, count);
    else if (y)
        runParts<false, false, true> (recursions, level, sideChain, y, count);
}

double roundToOutput (const double* y, float* out, std::size_t count)
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

const BlockMath TESSALY_BLOCK_MATH = { addNoise, levels, gains, run, roundToOutput };

} // namespace tessaly
