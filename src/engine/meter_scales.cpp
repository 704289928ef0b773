#include "meter_scales.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace tessaly
{

namespace
{

/// The highest index whose entry is at or below `v`, which is not below the first entry.
std::ptrdiff_t lastAtOrBelow (std::span<const double> scale, double v)
{
    return std::upper_bound (scale.begin (), scale.end (), v) - scale.begin () - 1;
}

} // namespace

double gainReductionPosition (double gain)
{
    constexpr double kLift = 0.001; // a gain that lies on an entry but for rounding counts as there
    constexpr double kSteps = kGainReductionScale.size () - 1;
    const double v = gain < 1.0 ? gain + kLift : gain;
    if (v <= kGainReductionScale.front ())
        return 0.0;
    if (v >= 1.0)
        return 1.0;
    return static_cast<double> (lastAtOrBelow (kGainReductionScale, v)) / kSteps;
}

double outputPosition (double level)
{
    constexpr double kLift = 0.0001;
    constexpr double kSteps = kOutputScale.size () + 1;
    const double v = level + kLift;
    if (v < kOutputScale.front ())
        return 0.0;
    if (v > kOutputScale.back ())
        return 1.0;
    return static_cast<double> (lastAtOrBelow (kOutputScale, v) + 1) / kSteps;
}

} // namespace tessaly
