#include "png_file.h"

#include <stdexcept>
#include <string>

namespace tessaly::drawing
{

namespace
{

cairo_status_t AppendBytes (void* closure, const unsigned char* data, unsigned int length)
{
    const auto* first = reinterpret_cast<const std::byte*> (data);
    auto& png = *static_cast<Png*> (closure);
    png.insert (png.end (), first, first + length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

Png PngOf (cairo_surface_t* pixels)
{
    Png png;
    const auto status = cairo_surface_write_to_png_stream (pixels, AppendBytes, &png);
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error (std::string ("a picture can't be made: ") + cairo_status_to_string (status));
    return png;
}

} // namespace tessaly::drawing
