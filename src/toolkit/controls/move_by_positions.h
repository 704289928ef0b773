#pragma once

#include "list_steps.h"

namespace tessaly
{

/// A drag that rests on the positions of list_steps.h: the position of the wanted value, or the present value while
/// that is the same one.
inline float MoveByPositions (float value, float wanted, float step)
{
    const auto index = NormalizedToInt (wanted, step);
    return index == NormalizedToInt (value, step) ? value : IntToNormalized (index, step);
}

} // namespace tessaly
