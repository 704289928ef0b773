#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The glass on which the name of the key-point set stands, 217 x 21.
void DrawNameStrip (Picture& picture);

} // namespace tessaly::skin
