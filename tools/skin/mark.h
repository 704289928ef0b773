#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The maker's mark: a hexagon of six tesserae, the upper one lit.
void DrawMark (Picture& picture, Point center, double radius);

} // namespace tessaly::skin
