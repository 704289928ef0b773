#pragma once

#include "picture.h"
#include <cstdint>
#include <span>

namespace tessaly::skin
{

/// A figure of a few pixels: rows from the top, the left pixel in the highest bit.
struct PixelGlyph
{
    std::int32_t width;
    std::span<const std::uint8_t> rows;

    bool At (std::int32_t x, std::int32_t y) const
    {
        return 0 <= x && x < width && 0 <= y && y < static_cast<std::int32_t> (rows.size ()) &&
               (rows[static_cast<std::size_t> (y)] >> (width - 1 - x) & 1) != 0;
    }
};

/// How such a figure is drawn where there is more than one pixel a unit.
struct StrokeStyle
{
    double width;     // units
    double cornerCut; // units of each side that are cut off a right-angled corner
};

/// At one pixel a unit its pixels; denser, strokes through their middles with round ends and joins.
void DrawGlyph (Picture& picture, const PixelGlyph& glyph, Point topLeft, const StrokeStyle& style, Ink ink);

} // namespace tessaly::skin
