#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tessaly
{

/// Toward zero; what does not fit lands on the nearest end of int32, NaN on 0.
inline std::int32_t Truncate (double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan (value))
        return 0;
    return static_cast<std::int32_t> (
        std::clamp (value, static_cast<double> (Limits::min ()), static_cast<double> (Limits::max ())));
}

/// The low 16 bits of Truncate, the width in which steps are stored.
inline std::int16_t TruncateToInt16 (double value)
{
    return static_cast<std::int16_t> (Truncate (value));
}

} // namespace tessaly
