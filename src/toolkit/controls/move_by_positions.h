#pragma once

#include <cstdint>

namespace tessaly
{

/// Positions of a switch-like control. A step is one over the number n of positions: reading cuts 0 to 1 into n equal
/// parts, writing puts position i at i / (n - 1). A step of 0 or less, or one of a single position, gives 0.
std::int32_t ValueToIndex (float value, float step);
float IndexToValue (std::int32_t index, float step);

/// A drag that rests on positions: the position of the wanted value, or the present value while that is the same one.
float MoveByPositions (float value, float wanted, float step);

} // namespace tessaly
