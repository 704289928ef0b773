#pragma once

#include "picture.h"
#include <cstdint>
#include <span>
#include <string_view>

namespace tessaly::skin
{

/// A figure of a few pixels, drawn once for each density.
struct PixelGlyph
{
    std::int32_t width;                 // pixels
    std::span<const std::uint8_t> rows; // from the top, the left pixel in the highest bit
    /// Lines through the middles of those pixels, parted by blanks: a digit for x and one for y of each point. A right
    /// angle is cut off at the corner, but where '!' follows the point.
    std::string_view strokes;
};

/// How the lines are drawn.
struct StrokeStyle
{
    double width;     // units
    double cornerCut; // units of each side of a right angle
};

/// At one pixel a unit its pixels; denser, its lines, with round ends and joins.
void DrawGlyph (Picture& picture, const PixelGlyph& glyph, Point topLeft, const StrokeStyle& style, Ink ink);

} // namespace tessaly::skin
