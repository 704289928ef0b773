#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The names of the bands, 13 high: row 0 dark, row 1 lit while the band is touched.
void DrawLowLamp (Picture& picture, std::int32_t column, std::int32_t row);
void DrawMidLamp (Picture& picture, std::int32_t column, std::int32_t row);
void DrawHighLamp (Picture& picture, std::int32_t column, std::int32_t row);

} // namespace tessaly::skin
