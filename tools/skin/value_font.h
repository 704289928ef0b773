#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// A character of the read-outs, 5 x 11: a row for each of kValueCharacters, columns at rest, lit, off.
void DrawValueFont (Picture& picture, std::int32_t column, std::int32_t row);

} // namespace tessaly::skin
