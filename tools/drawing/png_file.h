#pragma once

#include <cairo.h>
#include <cstddef>
#include <vector>

namespace tessaly::drawing
{

using Png = std::vector<std::byte>; // the file's bytes

/// @throws std::runtime_error when Cairo can't write it
Png PngOf (cairo_surface_t* pixels);

} // namespace tessaly::drawing
