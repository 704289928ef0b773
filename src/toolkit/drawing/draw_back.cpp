#include "draw_back.h"

#include "canvas.h"

namespace tessaly
{

namespace
{

void Fill (ZCanvas& canvas, const ZRect& rect, ZColor color, std::uint8_t alpha)
{
    canvas.SetColor (color, alpha);
    canvas.FillRect (rect);
}

void DrawRecord (const ZBackRecord& record, ZCanvas& canvas, const ZRect& rect)
{
    if (record.kind == kBackBitmap && record.bitmap != nullptr)
        canvas.DrawBitmap (*record.bitmap, rect, record.source);
    else if (record.kind == kBackColor)
        Fill (canvas, rect, record.color, 255);
    else if (record.kind == kBackColorAlpha)
        Fill (canvas, rect, record.color, record.alpha);
}

} // namespace

void ZDrawBack::SetBitmap (ZBackRecord& record, ZBitmap* bitmap, ZPoint source)
{
    record.kind = kBackBitmap;
    record.bitmap = bitmap;
    record.source = source;
}

void ZDrawBack::SetColor (ZBackRecord& record, ZColor color)
{
    record.kind = kBackColor;
    record.color = color;
}

void ZDrawBack::SetColorAlpha (ZBackRecord& record, ZColor color, std::uint8_t alpha)
{
    record.kind = kBackColorAlpha;
    record.color = color;
    record.alpha = alpha;
}

void ZDrawBack::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect) const
{
    DrawRecord (active, canvas, rect);
}

void ZDrawBack::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect) const
{
    DrawRecord (inactive, canvas, rect);
}

} // namespace tessaly
