#include "pack.h"

#include "image_pack.h"
#include "images.h"
#include <algorithm>
#include <cairo.h>
#include <string>

namespace tessaly::skin
{

namespace
{

PixelBlock PixelsOf (const Picture& picture)
{
    cairo_surface_t* surface = picture.Surface ();
    PixelBlock block{ cairo_image_surface_get_width (surface), cairo_image_surface_get_height (surface), {} };
    const auto* first = reinterpret_cast<const std::uint32_t*> (cairo_image_surface_get_data (surface));
    block.pixels.assign (first, first + std::ptrdiff_t{ block.width } * block.height); // 32 bits: rows without gaps
    return block;
}

/// Upper case, with the ending, as the panel asks for it.
std::string ResourceName (std::string_view name)
{
    std::string upper (name);
    upper += ".PNG";
    std::transform (upper.begin (), upper.end (), upper.begin (),
                    [] (char c) { return 'a' <= c && c <= 'z' ? static_cast<char> (c - 'a' + 'A') : c; });
    return upper;
}

} // namespace

std::vector<std::byte> MakeSkinPack (std::int32_t density)
{
    std::vector<ImageToPack> images;
    for (const Image& image : Images ())
        images.push_back ({ ResourceName (image.name), image.width * density, image.height * density,
                            PixelsOf (Draw (image, density)) });
    return MakeImagePack (images);
}

} // namespace tessaly::skin
