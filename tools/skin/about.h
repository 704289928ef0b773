#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The about picture, 560 x 315. The lower left stays clear for its two lines of text.
void DrawAbout (Picture& picture);

} // namespace tessaly::skin
