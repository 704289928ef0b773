#include "draw_text.h"

#include "canvas.h"
#include "text_buffer.h"

namespace tessaly
{

namespace
{

void SetFont (ZTextRecord& record, ZColor color, std::int32_t alignment, std::int32_t sizeIndex, std::int32_t style)
{
    record.kind = kTextStandardFont;
    record.color = color;
    record.alignment = alignment;
    record.sizeIndex = sizeIndex;
    record.fontStyle = style;
}

void SetNamedFont (ZTextRecord& record, ZColor color, std::int32_t alignment, std::string_view name, std::int32_t size,
                   std::int32_t style)
{
    record.kind = kTextNamedFont;
    record.color = color;
    record.alignment = alignment;
    record.fontName = CutAtCharacter (name, kTextSize - 1);
    record.fontSize = size;
    record.fontStyle = style;
}

void DrawRecord (const ZTextRecord& record, ZCanvas& canvas, const ZRect& rect, std::string_view text)
{
    if (record.kind != kTextStandardFont && record.kind != kTextNamedFont)
        return;
    canvas.SetColor (record.color, 255);
    if (record.kind == kTextStandardFont)
        canvas.SetFontSize (record.sizeIndex, record.fontStyle);
    else
        canvas.SetFont (record.fontName, record.fontSize, record.fontStyle);
    canvas.DrawText (text, rect, record.alignment);
}

} // namespace

void ZDrawText::SetFontActive (ZColor color, std::int32_t alignment, std::int32_t sizeIndex, std::int32_t style)
{
    SetFont (active, color, alignment, sizeIndex, style);
}

void ZDrawText::SetFontInactive (ZColor color, std::int32_t alignment, std::int32_t sizeIndex, std::int32_t style)
{
    SetFont (inactive, color, alignment, sizeIndex, style);
}

void ZDrawText::SetNamedFontActive (ZColor color, std::int32_t alignment, std::string_view name, std::int32_t size,
                                    std::int32_t style)
{
    SetNamedFont (active, color, alignment, name, size, style);
}

void ZDrawText::SetNamedFontInactive (ZColor color, std::int32_t alignment, std::string_view name, std::int32_t size,
                                      std::int32_t style)
{
    SetNamedFont (inactive, color, alignment, name, size, style);
}

void ZDrawText::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect, std::string_view text) const
{
    DrawRecord (active, canvas, rect, text);
}

void ZDrawText::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect, std::string_view text) const
{
    DrawRecord (inactive, canvas, rect, text);
}

} // namespace tessaly
