#pragma once

#include "cairo_bitmap_imp.h"
#include "picture_surface.h"
#include <cstdint>

namespace tessaly::test
{

/// What a canvas of scale 1 shows, as an image of this density.
inline ZCairoBitmapImp ImageOf (const ZCairoCanvasImp& canvas, std::int32_t density = 1)
{
    return ZCairoBitmapImp ("IMAGE.PNG", PngOf (canvas), density);
}

} // namespace tessaly::test
