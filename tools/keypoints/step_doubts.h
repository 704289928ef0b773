#pragma once

#include "key_points.h"
#include "panel.h"

#include <string>
#include <vector>

namespace tessaly::keypoints
{

/// What of a set lies beyond the scales, a line each: the plug-in takes it, but plays the nearest end.
std::vector<std::string> StepDoubts (const KeyPointSet& table, const Panel& panel);

} // namespace tessaly::keypoints
