#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// What lies over the panel while the morph dial is held, 560 x 315: light along the edge of the bench, and the key
/// points' numbers in it. Transparent everywhere else.
void DrawOverlay (Picture& picture);

} // namespace tessaly::skin
