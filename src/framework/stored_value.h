#pragma once

#include <algorithm>
#include <cmath>
#include <concepts>
#include <optional>

namespace tessaly
{

/// A normalized value as a stored state or a host gives it: anything. Beyond 0 to 1 the nearest end stands for it.
/// @return nothing for NaN: the parameter keeps its value
template <std::floating_point T>
std::optional<T> StoredValue (T value)
{
    if (std::isnan (value))
        return std::nullopt;
    return std::clamp (value, T (0), T (1));
}

} // namespace tessaly
