#pragma once

#include <algorithm>
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

    /// Multiplies each sample by its value.
    void scale (double* samples, std::size_t count, double target, double coef);

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

inline void Glide::scale (double* samples, std::size_t count, double target, double coef)
{
    const bool landed = hasLanded (target);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] *= landed ? target : next (target, coef);
}

/// @param sampleRate  Hz, above 0
inline double glideCoefficient (double sampleRate)
{
    constexpr double kSeconds = 0.01;
    return 1 - std::exp (-1 / sampleRate / kSeconds);
}

} // namespace tessaly
