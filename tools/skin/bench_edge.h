#pragma once

#include "picture.h"

namespace tessaly::skin
{

// The edge of the bench: a level line with a round collar in which the morph dial turns.

inline constexpr double kBenchTop = 243.0;
inline constexpr Point kLensMiddle{ 280.0, 254.0 };

/// The line across the panel, as far below the edge as told; half of an even line width keeps it on whole pixels.
void AddBenchEdge (Picture& picture, double below);
/// All of the panel that is bench.
void AddBench (Picture& picture);

} // namespace tessaly::skin
