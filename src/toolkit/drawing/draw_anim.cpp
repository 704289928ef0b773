#include "draw_anim.h"

#include "canvas.h"
#include <algorithm>

namespace tessaly
{

namespace
{

void SetAnim (ZAnimRecord& record, ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameHeight, ZPoint source)
{
    record = { kAnimPlain, bitmap, frameCount, record.frameWidth, frameHeight, source };
}

void DrawRecord (const ZAnimRecord& record, ZCanvas& canvas, const ZRect& rect, std::int32_t frame)
{
    if (record.bitmap == nullptr)
        return;
    const auto shown = std::max (std::min (frame, record.frameCount - 1), 0);
    const auto width = record.frameWidth != 0 ? record.frameWidth : rect.Width ();
    const auto height = record.frameHeight != 0 ? record.frameHeight : rect.Height ();
    const auto from = record.source + ZPoint{ 0, height * shown };
    if (record.kind == kAnimPlain)
        canvas.DrawBitmap (*record.bitmap, rect, from);
    else if (record.kind == kAnimStretched)
        canvas.StretchBitmap (*record.bitmap, rect, { from.x, from.y, from.x + width, from.y + height });
}

} // namespace

void ZDrawAnim::SetAnimActive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameHeight, ZPoint source)
{
    SetAnim (active, bitmap, frameCount, frameHeight, source);
}

void ZDrawAnim::SetAnimInactive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameHeight, ZPoint source)
{
    SetAnim (inactive, bitmap, frameCount, frameHeight, source);
}

void ZDrawAnim::SetStretchActive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameWidth,
                                  std::int32_t frameHeight, ZPoint source)
{
    active = { kAnimStretched, bitmap, frameCount, frameWidth, frameHeight, source };
}

void ZDrawAnim::SetStretchInactive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameWidth,
                                    std::int32_t frameHeight, ZPoint source)
{
    inactive = { kAnimStretched, bitmap, frameCount, frameWidth, frameHeight, source };
}

void ZDrawAnim::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect, std::int32_t frame) const
{
    DrawRecord (active, canvas, rect, frame);
}

void ZDrawAnim::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect, std::int32_t frame) const
{
    DrawRecord (inactive, canvas, rect, frame);
}

} // namespace tessaly
