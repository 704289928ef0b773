#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The bypass buttons, 71 x 37: row 0 while the section works, row 1 while it is bypassed.
void DrawCompressorBypass (Picture& picture, std::int32_t column, std::int32_t row);
void DrawEqualizerBypass (Picture& picture, std::int32_t column, std::int32_t row);

} // namespace tessaly::skin
