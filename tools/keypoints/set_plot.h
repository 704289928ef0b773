#pragma once

#include "key_points.h"
#include "page.h"

#include <string>

namespace tessaly::keypoints
{

/// The curves of a set's key points, as the engine itself tells them at 48 kHz: the equalizer's response and the
/// compressor's static curve at "Drive" 5, its makeup left out. A key point in a color of its own, from dark to light,
/// with its number at the end of its curves.
plot::Page PlotOf (const std::string& name, const KeyPointSet& table);

} // namespace tessaly::keypoints
