#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The large ring of 107 x 107 that a small dial grows while it is touched, with the lit dial in its middle. Nothing
/// else lies inside a radius of 41: the value floats there.
void DrawGuideRing (Picture& picture, std::int32_t column, std::int32_t frame);
void DrawGainGuideRing (Picture& picture, std::int32_t column, std::int32_t frame);

} // namespace tessaly::skin
