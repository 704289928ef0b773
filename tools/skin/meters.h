#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The meters: a row for each number of lamps that are lit, column 0 normal, 1 off.
void DrawReductionMeter (Picture& picture, std::int32_t column, std::int32_t row); ///< 5 x 71, from the top
void DrawOutputMeter (Picture& picture, std::int32_t column, std::int32_t row);    ///< 5 x 72, from the bottom

} // namespace tessaly::skin
