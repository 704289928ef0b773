#include "cairo_bitmap_imp.h"

#include "ascii_case.h"
#include "stream.h"
#include <algorithm>
#include <cairo.h>
#include <cstring>

namespace tessaly
{

namespace
{

constexpr std::size_t kLongestName = 255;
constexpr std::int32_t kMostDensity = 2;

cairo_status_t ReadBytes (void* closure, unsigned char* data, unsigned int length)
{
    auto& left = *static_cast<std::span<const std::byte>*> (closure);
    if (length > left.size ())
        return CAIRO_STATUS_READ_ERROR;
    std::memcpy (data, left.data (), length);
    left = left.subspan (length);
    return CAIRO_STATUS_SUCCESS;
}

cairo_status_t ReadStream (void* closure, unsigned char* data, unsigned int length)
{
    const auto count = static_cast<std::int32_t> (length);
    return static_cast<ZStream*> (closure)->Read (data, count) == count ? CAIRO_STATUS_SUCCESS
                                                                        : CAIRO_STATUS_READ_ERROR;
}

/// The image in 32 bits with alpha, whatever the file's form made of it. Null for one that can't be used.
CairoSurface WithAlpha (CairoSurface decoded)
{
    if (cairo_surface_status (decoded.get ()) != CAIRO_STATUS_SUCCESS)
        return nullptr;
    if (cairo_image_surface_get_format (decoded.get ()) == CAIRO_FORMAT_ARGB32)
        return decoded;
    CairoSurface surface (cairo_image_surface_create (CAIRO_FORMAT_ARGB32,
                                                      cairo_image_surface_get_width (decoded.get ()),
                                                      cairo_image_surface_get_height (decoded.get ())));
    const CairoContext context (cairo_create (surface.get ()));
    cairo_set_source_surface (context.get (), decoded.get (), 0.0, 0.0);
    cairo_set_operator (context.get (), CAIRO_OPERATOR_SOURCE);
    cairo_paint (context.get ());
    return cairo_status (context.get ()) == CAIRO_STATUS_SUCCESS ? std::move (surface) : nullptr;
}

std::string UpperCase (std::string_view text) // of ASCII: image names are
{
    std::string upper (text);
    std::transform (upper.begin (), upper.end (), upper.begin (), AsciiUpper);
    return upper;
}

} // namespace

ZCairoBitmapImp::ZCairoBitmapImp (std::string_view imageName, std::span<const std::byte> png, std::int32_t pixelDensity)
    : name (imageName.substr (0, kLongestName))
    , density (std::clamp (pixelDensity, 1, kMostDensity))
{
    Take (CairoSurface (cairo_image_surface_create_from_png_stream (ReadBytes, &png)));
}

ZCairoBitmapImp::ZCairoBitmapImp (std::string_view imageName, ZStream& png, std::int32_t pixelDensity)
    : name (imageName.substr (0, kLongestName))
    , density (std::clamp (pixelDensity, 1, kMostDensity))
{
    Take (CairoSurface (cairo_image_surface_create_from_png_stream (ReadStream, &png)));
}

std::unique_ptr<ZCairoBitmapImp> ZCairoBitmapImp::Load (const ZImageStore& store, std::string_view name, double scale)
{
    const std::string stored = UpperCase (name);
    if (scale > 1.0)
    {
        auto dense = std::make_unique<ZCairoBitmapImp> (name, store.Find (stored, 2), 2);
        if (dense->GetWidth () > 0)
            return dense;
    }
    return std::make_unique<ZCairoBitmapImp> (name, store.Find (stored, 1), 1);
}

void ZCairoBitmapImp::Take (CairoSurface decoded)
{
    pixels = WithAlpha (std::move (decoded));
    if (!pixels)
        return;
    width = static_cast<std::uint32_t> (cairo_image_surface_get_width (pixels.get ()) / density);
    height = static_cast<std::uint32_t> (cairo_image_surface_get_height (pixels.get ()) / density);
}

CopySource ZCairoBitmapImp::SourceOf (cairo_surface_t* surface) const
{
    return { surface, PixelGrid (density), static_cast<std::int32_t> (width), static_cast<std::int32_t> (height) };
}

CopySource ZCairoBitmapImp::Pixels () const
{
    return SourceOf (pixels.get ());
}

CopySource ZCairoBitmapImp::PixelsWithoutKey (ZColor key)
{
    if (pixels && !(keyKnown && keyed == key))
    {
        keyedPixels = WithoutKey (pixels.get (), key);
        keyed = key;
        keyKnown = true;
    }
    return SourceOf (keyedPixels ? keyedPixels.get () : pixels.get ());
}

} // namespace tessaly
