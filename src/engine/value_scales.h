#pragma once

#include "value_tables.h"

#include <cstdint>
#include <span>

namespace tessaly
{

// What a step of a control means, and which step is nearest to a value. Pure functions, any thread.

/// @return the entry at `step`; any step outside the table reads 0.0
double stepToValue (std::span<const double> table, std::int32_t step);

/// The step whose value is nearest to `value`, in the unit of the parameter's scale, within the parameter's own range
/// of steps. Halfway between two entries takes the lower step.
/// @param parameterIndex  1 to 3 and 7 to 17; any other parameter has no search and yields 0
std::int32_t nearestStep (std::int16_t parameterIndex, double value);

/// The step that a typed or dragged value stands for, as the float that parameters are set by. Whole, except for
/// "Drive" (index 0), whose read-out is finer than its steps. A ratio above 500 means the last step.
/// @return 0 for a parameter that has no scale (4, 5, 6, above 17)
float valueToStep (std::uint32_t parameterIndex, double value);

// Linear scales: any step, no range check.

/// dB, step 180 is 0 dB
constexpr double gainDb (std::int32_t step)
{
    return step * 0.1 - 18;
}

/// dB of the compressor's threshold
constexpr double driveThreshold (std::int32_t step)
{
    return static_cast<double> (-std::int64_t{ step }) * 0.2; // any step has a negative in 64 bits
}

/// no unit, what "Drive" shows
constexpr double driveDisplay (std::int32_t step)
{
    return step * 0.05;
}

/// dB, step 100 is 0 dB
constexpr double driveOffset (std::int32_t step)
{
    return step * 0.2 - 20;
}

/// 0 to 1 over 200 steps
constexpr double makeupAmount (std::int32_t step)
{
    return step * 0.005;
}

/// no unit
constexpr double hundredths (std::int32_t step)
{
    return step * 0.01;
}

} // namespace tessaly
