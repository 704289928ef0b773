#pragma once

#include "key_points.h"
#include <optional>

namespace tessaly
{

/// The steps that a position of the "Morph" dial means: those of the key point itself, or a straight line between the
/// filled rows below and above it,
///     step = truncate (a + f * (b - a)),   f = position / 15 - truncate (position / 15)
/// f is measured within the fifteen positions of one row, also where empty rows lie between a and b; so the result
/// jumps where the position crosses a row. Where only one side is filled, that row as it stands.
/// @param position  0 to 120, 15 to a row, clamped
/// @return nothing when all rows are empty
std::optional<KeyPointRow> MorphedSteps (const KeyPointSet& set, float position);

} // namespace tessaly
