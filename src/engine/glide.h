#pragma once

#include "block_math.h"

#include <array>
#include <cstddef>

namespace tessaly
{

/// How values glide at one sample rate: 1/e of the way is left after 10 ms. With c the part of the way that a sample
/// takes, 1 - exp (-1 / (0.01 * sampleRate)):
struct GlideLaw
{
    explicit GlideLaw (double sampleRate); ///< Hz, above 0

    double beyond;                        ///< K of Glide, 1.2e-7 / c
    std::array<double, kGlideLanes> left; ///< (1 - c)^n, n = 1 to 8
};

/// A value on its way to its target: each sample takes a part of the distance, and a small fixed step that makes it
/// land exactly on the target in finite time,
///     current[n+1] = current[n] + c (target - current[n]) + 1.2e-7   while it rises; falling likewise
/// not beyond the target. Several samples at once go by the closed form of that recursion: with K = 1.2e-7 / c and D
/// the distance at the beginning,
///     |target - current[n]| = max ((D + K) (1 - c)^n - K, 0)
/// Once there it costs nothing. Audio thread.
class Glide
{
public:
    explicit Glide (double start)
        : current (start)
    {
    }

    bool hasLanded (double target) const { return current == target; }

    /// Writes the values of the next `count` samples.
    void fill (double* values, std::size_t count, double target, const GlideLaw& law);

private:
    double current;
};

/// A glide by rows of values. A row that stands still is written once. Audio thread.
class GlideRow
{
public:
    explicit GlideRow (double start)
        : glide (start)
    {
    }

    /// @param count  at most kChunkSamples
    /// @return the next `count` values, until the next call
    const double* next (std::size_t count, double target, const GlideLaw& law);

private:
    Glide glide;
    std::array<double, kChunkSamples> values;
    std::size_t standing = 0; // of `values`, at the beginning: the present value, on which the glide has landed
};

inline const double* GlideRow::next (std::size_t count, double target, const GlideLaw& law)
{
    const bool landed = glide.hasLanded (target);
    if (!landed || standing < count)
    {
        glide.fill (values.data (), count, target, law);
        standing = landed ? count : 0;
    }
    return values.data ();
}

} // namespace tessaly
