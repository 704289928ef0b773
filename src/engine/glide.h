#pragma once

#include "block_math.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace tessaly
{

/// A value on its way to its target: exponential, with a time constant of 10 ms at every rate, plus a small fixed step
/// a sample that makes it land exactly on the target in finite time. Once there it costs nothing. Audio thread.
class Glide
{
public:
    explicit Glide (double start)
        : current (start)
    {
    }

    bool hasLanded (double target) const { return current == target; }
    double value () const { return current; }

    /// One sample.
    /// @param coef  glideCoefficient of the rate
    double next (double target, double coef);

    /// Writes the next `count` values.
    void fill (double* values, std::size_t count, double target, double coef);

private:
    double current;
};

inline double Glide::next (double target, double coef)
{
    constexpr double kLandingStep = 0.00000012;
    const double d = (target - current) * coef;
    if (d > 0)
        current = std::min (current + d + kLandingStep, target);
    else
        current = std::max (current + d - kLandingStep, target);
    return current;
}

inline void Glide::fill (double* values, std::size_t count, double target, double coef)
{
    if (hasLanded (target))
        std::fill_n (values, count, target);
    else
        for (std::size_t i = 0; i < count; ++i)
            values[i] = next (target, coef);
}

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
    const double* next (std::size_t count, double target, double coef);

private:
    Glide glide;
    std::array<double, kChunkSamples> values;
    std::size_t standing = 0; // of `values`, at the beginning: the present value, on which the glide has landed
};

inline const double* GlideRow::next (std::size_t count, double target, double coef)
{
    const bool landed = glide.hasLanded (target);
    if (!landed || standing < count)
    {
        glide.fill (values.data (), count, target, coef);
        standing = landed ? count : 0;
    }
    return values.data ();
}

/// @param sampleRate  Hz, above 0
inline double glideCoefficient (double sampleRate)
{
    constexpr double kSeconds = 0.01;
    return 1 - std::exp (-1 / sampleRate / kSeconds);
}

} // namespace tessaly
