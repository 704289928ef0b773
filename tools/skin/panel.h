#pragma once

#include "picture.h"

namespace tessaly::skin
{

// The panel, and the parts of it that are drawn once more: with a section's labels dimmed, or without anything.

void DrawPanel (Picture& picture);
void DrawCompressorOff (Picture& picture);
void DrawEqualizerOff (Picture& picture); ///< the bands above, the Total Gain row below
void DrawMeterCover (Picture& picture);

} // namespace tessaly::skin
