#pragma once

#include <algorithm>
#include <cmath>

namespace tessaly
{

/// One sample of a value on its way to its target: exponential, with a time constant of 10 ms at every rate, plus a
/// small fixed step that makes it land exactly on the target in finite time.
/// @param coef  glideCoefficient of the rate
inline double glide (double current, double target, double coef)
{
    constexpr double kLandingStep = 0.00000012;
    const double d = (target - current) * coef;
    if (d > 0)
        return std::min (current + d + kLandingStep, target);
    return std::max (current + d - kLandingStep, target);
}

/// @param sampleRate  Hz, above 0
inline double glideCoefficient (double sampleRate)
{
    constexpr double kSeconds = 0.01;
    return 1 - std::exp (-1 / sampleRate / kSeconds);
}

} // namespace tessaly
