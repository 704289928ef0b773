#pragma once

#include <cstdint>

namespace tessaly
{

// A list of n entries has the step 1 / n. It divides 0 to 1 into n equal parts when read and places entry i at
// i / (n - 1) when written; reading what was written gives i again.

/// The entry at a normalized value, 0 to n - 1; 0 for a step of 0 or less and for a list of fewer than 2 entries.
std::int32_t NormalizedToInt (float normalized, float step);

/// The place of an entry, 0.0 to 1.0; 0.0 for a step of 0 or less and for a list of fewer than 2 entries.
float IntToNormalized (std::int32_t entry, float step);

} // namespace tessaly
