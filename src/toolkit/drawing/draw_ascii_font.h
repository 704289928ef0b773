#pragma once

#include "draw_font.h"
#include "geometry.h"
#include "look_records.h"
#include <cstdint>
#include <string_view>

namespace tessaly
{

struct ZAsciiFontRecord
{
    static constexpr std::int32_t kLastKind = kFontGlyphs;

    std::int32_t kind = kFontNone;
    ZBitmap* bitmap = nullptr;   // not owned: the editor's cache
    std::int32_t charWidth = 0;  // pixels
    std::int32_t charHeight = 0; // pixels
    std::int32_t alignment = 0;  // bits of Alignment, as StartOfGlyphs reads them
    ZPoint source;               // top left of the glyph of byte 0
};

/// Mix-in: a text in a bitmap font laid out by character code: a column for each run of 16 codes, 16 rows.
class ZDrawAsciiFont : public ZLookRecords<ZAsciiFontRecord>
{
public:
    void SetFontActive (ZBitmap* bitmap, std::int32_t charWidth, std::int32_t charHeight, std::int32_t alignment,
                        ZPoint source) ///< borrowed
    {
        active = { kFontGlyphs, bitmap, charWidth, charHeight, alignment, source };
    }
    void SetFontInactive (ZBitmap* bitmap, std::int32_t charWidth, std::int32_t charHeight, std::int32_t alignment,
                          ZPoint source)
    {
        inactive = { kFontGlyphs, bitmap, charWidth, charHeight, alignment, source };
    }

    void DrawActive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::string_view text) const;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::string_view text) const;
};

} // namespace tessaly
