#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The bands' markers in the graph, 11 x 11: row 0 at rest, 1 selected, 2 off.
void DrawLowMarker (Picture& picture, std::int32_t column, std::int32_t row);
void DrawMidMarker (Picture& picture, std::int32_t column, std::int32_t row);
void DrawHighMarker (Picture& picture, std::int32_t column, std::int32_t row);

} // namespace tessaly::skin
