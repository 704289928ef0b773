#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The Drive dial, 56 x 56: a fluted skirt that turns under a smooth cap.
void DrawDriveDial (Picture& picture, std::int32_t column, std::int32_t frame);

} // namespace tessaly::skin
