#pragma once

#include <algorithm>
#include <cmath>
#include <optional>

namespace tessaly
{

/// A normalized value as a stored state gives it: any bytes. Beyond 0 to 1 the nearest end stands for it.
/// @return nothing for what is no number: the parameter keeps its value
inline std::optional<float> StoredValue (float value)
{
    if (std::isnan (value))
        return std::nullopt;
    return std::clamp (value, 0.0f, 1.0f);
}

} // namespace tessaly
