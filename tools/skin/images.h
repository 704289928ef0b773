#pragma once

#include "picture.h"
#include <span>
#include <string_view>

namespace tessaly::skin
{

/// An image of the skin: frames of one size, some columns side by side, rows below one another.
struct Image
{
    std::string_view name; // of the PNG file, without the ending
    std::int32_t width;    // of a frame, in units, as the height
    std::int32_t height;
    std::int32_t columns;
    std::int32_t rows;
    void (*drawFrame) (Picture& picture, std::int32_t column, std::int32_t row);
};

/// All of them; the panel's controls know their sizes.
std::span<const Image> Images ();

/// @param density  pixels a unit. The same machine gives the same pixels every time
Picture Draw (const Image& image, std::int32_t density);

} // namespace tessaly::skin
