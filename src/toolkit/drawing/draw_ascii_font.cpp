#include "draw_ascii_font.h"

#include "glyph_row.h"

namespace tessaly
{

namespace
{

void DrawRecord (const ZAsciiFontRecord& record, ZCanvas& canvas, const ZRect& rect, std::string_view text)
{
    DrawGlyphs (record, canvas, rect, text,
                [] (char byte)
                {
                    const auto code = static_cast<unsigned char> (byte);
                    return ZPoint{ code >> 4, code & 15 };
                });
}

} // namespace

void ZDrawAsciiFont::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect,
                                 std::string_view text) const
{
    DrawRecord (active, canvas, rect, text);
}

void ZDrawAsciiFont::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect,
                                   std::string_view text) const
{
    DrawRecord (inactive, canvas, rect, text);
}

} // namespace tessaly
