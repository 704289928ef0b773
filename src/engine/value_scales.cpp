#include "value_scales.h"

#include "strip_parameter.h"

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

/// The part of a scale that one parameter uses; both steps inclusive.
struct StepRange
{
    std::span<const double> table;
    std::int32_t low = 0;
    std::int32_t high = 0;
};

/// @return an empty table for a parameter that is not searched
StepRange stepRange (std::int16_t parameterIndex)
{
    switch (static_cast<StripParameter> (parameterIndex))
    {
    case StripParameter::attack:
        return { attackMs, 57, 283 };
    case StripParameter::release:
        return { releaseMs, 24, 300 };
    case StripParameter::ratio:
        return { ratioValue, 0, 120 };
    case StripParameter::sideChainFreq:
    case StripParameter::midFreq:
        return { frequencyHz, 4, 124 };
    case StripParameter::highFreq:
        return { frequencyHz, 60, 124 };
    case StripParameter::lowFreq:
        return { frequencyHz, 4, 72 };
    case StripParameter::sideChainQ:
    case StripParameter::midQ:
        return { qValue, 0, 60 };
    case StripParameter::sideChainGain:
    case StripParameter::highGain:
    case StripParameter::midGain:
    case StripParameter::lowGain:
    case StripParameter::totalGain:
        return { kGainTable, 0, 360 };
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
    const StepRange range = stepRange (parameterIndex);
    if (range.table.empty ())
        return 0;

    std::int32_t nearest = range.low;
    double smallestDistance = std::numeric_limits<double>::infinity ();
    for (std::int32_t step = range.low; step <= range.high; ++step)
    {
        const double distance = std::abs (value - stepToValue (range.table, step));
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
    constexpr float kLastDriveStep = 200;
    constexpr double kLastFiniteRatio = 500;
    constexpr double kInfiniteRatio = ratioValue.back ();

    const auto parameter = static_cast<StripParameter> (parameterIndex);
    if (parameter == StripParameter::drive)
        return std::clamp (static_cast<float> (value * kDriveStepsPerUnit), 0.0F, kLastDriveStep);
    if (parameter == StripParameter::ratio && value > kLastFiniteRatio)
        value = kInfiniteRatio;
    if (parameter > StripParameter::totalGain)
        return 0.0F;
    return static_cast<float> (nearestStep (static_cast<std::int16_t> (parameterIndex), value));
}

} // namespace tessaly
