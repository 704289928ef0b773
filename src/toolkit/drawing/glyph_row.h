#pragma once

#include "canvas.h"
#include "draw_font.h"
#include "geometry.h"
#include <cstdint>
#include <string_view>

namespace tessaly
{

/// Where the first of `count` glyphs of a bitmap font stands. Unlike a text of the canvas, a row without an alignment
/// bit lies at the right and at the bottom, and the bits for these two are not looked at. A row that is too wide or too
/// high runs past the rectangle; the clip of the pane cuts it.
template <typename Record>
ZPoint StartOfGlyphs (const Record& record, const ZRect& rect, std::int32_t count)
{
    ZPoint start = rect.TopLeft ();
    if ((record.alignment & kAlignLeft) == 0)
    {
        start.x = rect.right - count * record.charWidth;
        if ((record.alignment & kAlignCenter) != 0)
            start.x = (start.x + rect.left) / 2;
    }
    if ((record.alignment & kAlignTop) == 0)
    {
        start.y = rect.bottom - record.charHeight;
        if ((record.alignment & kAlignMiddle) != 0)
            start.y = (start.y + rect.top) / 2;
    }
    return start;
}

/// Draws a text with a bitmap font of fixed width, one glyph a byte. What the two bitmap fonts share.
/// @param placeOf  the glyph of a byte in the bitmap: its column and row of cells
template <typename Record, typename PlaceOf>
void DrawGlyphs (const Record& record, ZCanvas& canvas, const ZRect& rect, std::string_view text, PlaceOf placeOf)
{
    if (record.kind != kFontGlyphs || record.bitmap == nullptr)
        return;
    const ZRect cell{ 0, 0, record.charWidth, record.charHeight };
    auto at = StartOfGlyphs (record, rect, static_cast<std::int32_t> (text.size ()));
    for (const char byte : text)
    {
        const ZPoint place = placeOf (byte);
        const ZPoint offset{ place.x * record.charWidth, place.y * record.charHeight };
        canvas.DrawBitmap (*record.bitmap, cell + at, record.source + offset);
        at.x += record.charWidth;
    }
}

} // namespace tessaly
