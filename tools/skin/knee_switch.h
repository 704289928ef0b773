#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The knee switch, 117 x 13: rows 0 to 2 Soft, Middle, Hard at rest, then lit, then off.
void DrawKneeSwitch (Picture& picture, std::int32_t column, std::int32_t row);

} // namespace tessaly::skin
