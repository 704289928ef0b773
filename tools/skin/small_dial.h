#pragma once

#include "frames.h"
#include "picture.h"

namespace tessaly::skin
{

/// A small dial of 13 x 13. Its arc of light begins at the least value, or at the middle one for a gain.
void DrawSmallDial (Picture& picture, std::int32_t column, std::int32_t frame);
void DrawSmallGainDial (Picture& picture, std::int32_t column, std::int32_t frame);

} // namespace tessaly::skin
