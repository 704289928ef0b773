#pragma once

#include "key_points.h"
#include "panel.h"

#include <iosfwd>
#include <string>

namespace tessaly::keypoints
{

/// The nine key points, a line each below the parameters' names and units; an empty one says so.
void PrintSet (std::ostream& out, const KeyPointSet& table, const Panel& panel);

/// The same as JSON: the parameters with name and unit, and for each key point its number, values as on the panel, and
/// steps; null in place of both where it is empty.
/// @param name  of the set
void PrintJson (std::ostream& out, const std::string& name, const KeyPointSet& table, const Panel& panel);

} // namespace tessaly::keypoints
