#pragma once

#include <cstddef>
#include <cstdint>

namespace tessaly
{

struct KneeCurve;
struct Recursions;

/// The samples that stages hand on at once: long enough that beginning and ending a chunk weighs little, short enough
/// for the first-level cache.
inline constexpr std::size_t kChunkSamples = 256;

/// The values of a glide that are worked out at once.
inline constexpr std::size_t kGlideLanes = 8;

/// The inner loops of the strip, built for several widths of vectors. The logarithm and the power are polynomials in
/// double precision, within 2e-13 (levels, absolute; gains, relative) of the exact function; a test holds them to it.
/// The widths differ by the rounding of fused multiply-adds alone.
///
/// Arrays hold `count` values, at most kChunkSamples, and do not overlap. Audio thread; nothing is kept.
struct BlockMath
{
    /// Adds the noise (noise_generator.h) to the input.
    /// @param state  of the generator; moved on by `count` numbers
    /// @return false if any sample of the input is infinite or NaN
    bool (*addNoise) (const float* in, std::uint32_t& state, double* out, std::size_t count);

    /// Level of each side-chain sample over the threshold, log10:
    ///     level = log10 |s| - thresholdLog   if |s| >= floor,   -1.5 otherwise
    /// @param floor  linear, above 0
    void (*levels) (const double* s, double floor, double thresholdLog, double* level, std::size_t count);

    /// Gain of each detector level, 10^(-slope shapedLevel) (gain_computer.h), and the smallest of them. Gains below
    /// 10^-307 come out as 10^-307.
    /// @param slope  one a sample, 0 to 1
    /// @return the smallest gain, at most 1
    double (*gains) (const double* level, const double* slope, const KneeCurve& knee, double* gain, std::size_t count);

    /// Weights of a crossfade, a stretch of the logistic curve in powers of 2:
    ///     weight[i] = 1 / (1 + 2^-(start + i * step))
    /// @param start, step  `start + i * step` from -1000 to 1000
    void (*logistic) (double* weight, double start, double step, std::size_t count);

    /// The next values of a glide, by the closed form of glide.h.
    /// @param beyond  K there
    /// @param left    (1 - c)^n for n = 1 to kGlideLanes
    void (*glide) (double* value, std::size_t count, double current, double target, double beyond, const double* left);

    /// Multiplies each sample by its factor.
    void (*scale) (double* samples, const double* factor, std::size_t count);

    /// Runs each stretch through its part of the recursions, in place: `level` through the detector, `sideChain`
    /// through the side chain's filters, `y` through the equalizer, crossfades included; the weights of a part that
    /// runs move on by `count`. A null stretch leaves its part alone. The parts know nothing of each other; the
    /// stretches belong to different times, or they would have to wait.
    void (*run) (Recursions& recursions, double* level, double* sideChain, double* y, std::size_t count);

    /// Rounds to 32-bit samples.
    /// @return the highest output as the output meter compares it: the sample itself, negated only below -1; 0 or above
    double (*roundToOutput) (const double* y, float* out, std::size_t count);
};

/// The version with the widest SIMD that this processor runs; chosen once.
const BlockMath& blockMath ();

} // namespace tessaly
