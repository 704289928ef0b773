#pragma once

#include "cairo_canvas_imp.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessaly
{

/// What is drawn on where there is no window.
using PictureSurface = ZCairoCanvasImp;

/// Row by row, 0xAARRGGBB with premultiplied alpha.
std::vector<std::uint32_t> PixelsOf (const PictureSurface& surface);

/// A PNG file's bytes; none when it can't be written.
std::vector<std::byte> PngOf (const PictureSurface& surface);

} // namespace tessaly
