#pragma once

#include "geometry.h"
#include "look_records.h"
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly
{

class ZCanvas;

enum TextKind : std::int32_t
{
    kTextNone = 0,
    kTextStandardFont = 1, // by the index of a size
    kTextNamedFont = 2
};

struct ZTextRecord
{
    static constexpr std::int32_t kLastKind = kTextNamedFont;

    std::int32_t kind = kTextNone;
    ZColor color;               // drawn opaque
    std::int32_t alignment = 0; // bits of Alignment
    std::int32_t sizeIndex = 0; // of kTextStandardFont: 0 to 4, of kFontSizes
    std::string fontName;       // of kTextNamedFont: UTF-8
    std::int32_t fontSize = 0;  // of kTextNamedFont: pixels
    std::int32_t fontStyle = 0; // bits of FontStyle, of both kinds
};

/// Mix-in: a text in a font of the canvas.
class ZDrawText : public ZLookRecords<ZTextRecord>
{
public:
    void SetFontActive (ZColor color, std::int32_t alignment, std::int32_t sizeIndex, std::int32_t style);
    void SetFontInactive (ZColor color, std::int32_t alignment, std::int32_t sizeIndex, std::int32_t style);
    void SetNamedFontActive (ZColor color, std::int32_t alignment, std::string_view name, std::int32_t size,
                             std::int32_t style); ///< a name of more than 255 bytes is cut at a whole character
    void SetNamedFontInactive (ZColor color, std::int32_t alignment, std::string_view name, std::int32_t size,
                               std::int32_t style);

    void DrawActive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::string_view text) const;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::string_view text) const;
};

} // namespace tessaly
