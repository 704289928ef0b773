#pragma once

#include "picture.h"

namespace tessaly::skin
{

// The glass under the curves: figures, and a grid on the very pixels at which the graphs draw these levels.

void DrawCompressorGraph (Picture& picture);
void DrawEqualizerGraph (Picture& picture);

} // namespace tessaly::skin
