#include "value_scales.h"

#include "step_ranges.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessaly
{

namespace
{

constexpr std::array<double, 361> makeGainTable ()
{
    std::array<double, 361> table{};
    for (std::size_t step = 0; step < table.size (); ++step)
        table[step] = gainDb (static_cast<std::int32_t> (step));
    return table;
}

constexpr std::array<double, 361> kGainTable = makeGainTable ();
static_assert (isAscending (kGainTable));

/// @return an empty table for a parameter that is not searched
std::span<const double> scaleOf (StripParameter parameter)
{
    switch (parameter)
    {
    case StripParameter::attack:
        return attackMs;
    case StripParameter::release:
        return releaseMs;
    case StripParameter::ratio:
        return ratioValue;
    case StripParameter::sideChainFreq:
    case StripParameter::highFreq:
    case StripParameter::midFreq:
    case StripParameter::lowFreq:
        return frequencyHz;
    case StripParameter::sideChainQ:
    case StripParameter::midQ:
        return qValue;
    case StripParameter::sideChainGain:
    case StripParameter::highGain:
    case StripParameter::midGain:
    case StripParameter::lowGain:
    case StripParameter::totalGain:
        return kGainTable;
    default:
        return {};
    }
}

} // namespace

double stepToValue (std::span<const double> table, std::int32_t step)
{
    const auto index = static_cast<std::size_t> (step);
    return step >= 0 && index < table.size () ? table[index] : 0.0;
}

std::int32_t nearestStep (std::int16_t parameterIndex, double value)
{
    const auto parameter = static_cast<StripParameter> (parameterIndex);
    const auto scale = scaleOf (parameter);
    if (scale.empty ())
        return 0;

    const StepRange& range = StepsOf (parameter);
    std::int32_t nearest = range.first;
    double smallestDistance = std::numeric_limits<double>::infinity ();
    for (std::int32_t step = range.first; step <= range.last; ++step)
    {
        const double distance = std::abs (value - stepToValue (scale, step));
        if (distance < smallestDistance)
        {
            smallestDistance = distance;
            nearest = step;
        }
    }
    return nearest;
}

float valueToStep (std::uint32_t parameterIndex, double value)
{
    constexpr double kDriveStepsPerUnit = 20;
    constexpr double kLastFiniteRatio = 500;
    constexpr double kInfiniteRatio = ratioValue.back ();

    const auto parameter = static_cast<StripParameter> (parameterIndex);
    if (parameterIndex >= kStripParameterCount)
        return 0.0F;
    if (parameter == StripParameter::drive)
        return std::clamp (static_cast<float> (value * kDriveStepsPerUnit), 0.0F,
                           static_cast<float> (StepsOf (parameter).last));
    if (parameter == StripParameter::ratio && value > kLastFiniteRatio)
        value = kInfiniteRatio;
    return static_cast<float> (nearestStep (static_cast<std::int16_t> (parameterIndex), value));
}

} // namespace tessaly
