#pragma once

#include "key_points.h"
#include "panel.h"

#include <iosfwd>

namespace tessaly::keypoints
{

// A set as a table of values, a key point a line (csv.h). The first line names the parameters; all of
// them, in any order. A column "Key point", which may be missing, numbers the lines from 1 to 9; without it they count
// from the first. A key point whose fields are all empty, and one that does not come, is an empty one. Lines that begin
// with # are left out, and so are blank ones where the lines are numbered or nothing follows.

/// @throws SetError that names row, column and reason
KeyPointSet ReadCsv (std::istream& in, const Panel& panel);

/// All nine, numbered. A table with steps that the parameters have reads back the same.
void WriteCsv (std::ostream& out, const KeyPointSet& table, const Panel& panel);

} // namespace tessaly::keypoints
