#include "picture_surface.h"

#include <cairo.h>
#include <cstring>

namespace tessaly
{

namespace
{

cairo_status_t Append (void* closure, const unsigned char* data, unsigned int length)
{
    const auto* const bytes = reinterpret_cast<const std::byte*> (data);
    auto& file = *static_cast<std::vector<std::byte>*> (closure);
    file.insert (file.end (), bytes, bytes + length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

std::vector<std::uint32_t> PixelsOf (const PictureSurface& surface)
{
    const auto width = static_cast<std::size_t> (surface.PixelSize ().right);
    const auto height = static_cast<std::size_t> (surface.PixelSize ().bottom);
    cairo_surface_t* const image = surface.Surface ();
    const auto stride = static_cast<std::size_t> (cairo_image_surface_get_stride (image));
    std::vector<std::uint32_t> pixels (width * height);
    for (std::size_t y = 0; y < height; ++y)
        std::memcpy (pixels.data () + y * width, cairo_image_surface_get_data (image) + y * stride, width * 4);
    return pixels;
}

std::vector<std::byte> PngOf (const PictureSurface& surface)
{
    std::vector<std::byte> file;
    if (cairo_surface_write_to_png_stream (surface.Surface (), Append, &file) != CAIRO_STATUS_SUCCESS)
        file.clear ();
    return file;
}

} // namespace tessaly
