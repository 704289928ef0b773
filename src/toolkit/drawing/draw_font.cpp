#include "draw_font.h"

#include "glyph_row.h"
#include "text_buffer.h"

namespace tessaly
{

namespace
{

ZFontRecord FontRecord (ZBitmap* bitmap, std::string_view characters, std::int32_t charWidth, std::int32_t charHeight,
                        std::int32_t alignment, ZPoint source)
{
    const std::string kept (characters.substr (0, kTextSize - 1));
    return { kFontGlyphs, bitmap, kept, charWidth, charHeight, alignment, source };
}

void DrawRecord (const ZFontRecord& record, ZCanvas& canvas, const ZRect& rect, std::string_view text)
{
    DrawGlyphs (record, canvas, rect, text,
                [&record] (char byte)
                {
                    const auto index = record.characters.find (byte);
                    return ZPoint{ 0, index == std::string::npos ? 0 : static_cast<std::int32_t> (index) };
                });
}

} // namespace

void ZDrawFont::SetFontActive (ZBitmap* bitmap, std::string_view characters, std::int32_t charWidth,
                               std::int32_t charHeight, std::int32_t alignment, ZPoint source)
{
    active = FontRecord (bitmap, characters, charWidth, charHeight, alignment, source);
}

void ZDrawFont::SetFontInactive (ZBitmap* bitmap, std::string_view characters, std::int32_t charWidth,
                                 std::int32_t charHeight, std::int32_t alignment, ZPoint source)
{
    inactive = FontRecord (bitmap, characters, charWidth, charHeight, alignment, source);
}

void ZDrawFont::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect, std::string_view text) const
{
    DrawRecord (active, canvas, rect, text);
}

void ZDrawFont::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect, std::string_view text) const
{
    DrawRecord (inactive, canvas, rect, text);
}

} // namespace tessaly
