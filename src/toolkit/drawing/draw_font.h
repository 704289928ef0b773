#pragma once

#include "geometry.h"
#include "look_records.h"
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly
{

class ZBitmap;
class ZCanvas;

enum FontKind : std::int32_t // of both bitmap fonts
{
    kFontNone = 0,
    kFontGlyphs = 1
};

struct ZFontRecord
{
    static constexpr std::int32_t kLastKind = kFontGlyphs;

    std::int32_t kind = kFontNone;
    ZBitmap* bitmap = nullptr;   // not owned: the editor's cache
    std::string characters;      // one byte a glyph, in the order of the glyphs
    std::int32_t charWidth = 0;  // pixels
    std::int32_t charHeight = 0; // pixels
    std::int32_t alignment = 0;  // bits of Alignment, as StartOfGlyphs reads them
    ZPoint source;               // top left of the first glyph
};

/// Mix-in: a text in a bitmap font that lists its characters; the glyphs stand one below the other. A byte that is not
/// in the list shows the first glyph, a repeated one the glyph of its first place.
class ZDrawFont : public ZLookRecords<ZFontRecord>
{
public:
    void SetFontActive (ZBitmap* bitmap, std::string_view characters, std::int32_t charWidth, std::int32_t charHeight,
                        std::int32_t alignment, ZPoint source); ///< borrowed; at most 255 characters are kept
    void SetFontInactive (ZBitmap* bitmap, std::string_view characters, std::int32_t charWidth, std::int32_t charHeight,
                          std::int32_t alignment, ZPoint source);

    void DrawActive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::string_view text) const;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::string_view text) const;
};

} // namespace tessaly
