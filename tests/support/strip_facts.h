#pragma once

#include <cstddef>

namespace tessaly::test
{

// What the tests know of the strip, apart from its code. A parameter that is added counts here.

inline constexpr std::size_t kParameterCount = 22;

/// The values in the head of a stored state, frozen.
inline constexpr std::size_t kHeadValues = 22;

/// A stored state: four letters and the head's values; the tree's headers, format, name and set; every value again.
inline constexpr std::size_t kStateBytes = 4 + 4 * kHeadValues + 632 + 4 * kParameterCount;

} // namespace tessaly::test
