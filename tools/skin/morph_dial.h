#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The morph dial, 164 x 92: arc, lens and figure round (82, 40), the bar in the last two rows, nothing between.
void DrawMorphDial (Picture& picture, std::int32_t column, std::int32_t frame);

} // namespace tessaly::skin
