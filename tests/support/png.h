#pragma once

#include "cairo_bitmap_imp.h"
#include "cairo_canvas_imp.h"
#include <cairo.h>
#include <cstddef>
#include <vector>

namespace tessaly::test
{

/// A PNG file in memory of what a canvas shows.
inline std::vector<std::byte> PngOf (const ZCairoCanvasImp& canvas)
{
    std::vector<std::byte> file;
    cairo_surface_write_to_png_stream (
        canvas.Surface (),
        [] (void* closure, const unsigned char* data, unsigned int length)
        {
            auto& bytes = *static_cast<std::vector<std::byte>*> (closure);
            const auto* first = reinterpret_cast<const std::byte*> (data);
            bytes.insert (bytes.end (), first, first + length);
            return CAIRO_STATUS_SUCCESS;
        },
        &file);
    return file;
}

/// What a canvas of scale 1 shows, as an image of this density.
inline ZCairoBitmapImp ImageOf (const ZCairoCanvasImp& canvas, std::int32_t density = 1)
{
    return ZCairoBitmapImp ("IMAGE.PNG", PngOf (canvas), density);
}

} // namespace tessaly::test
