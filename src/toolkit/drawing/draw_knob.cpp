#include "draw_knob.h"

#include "canvas.h"

namespace tessaly
{

namespace
{

void DrawRecord (const ZKnobRecord& record, ZCanvas& canvas, const ZRect& rect)
{
    if (record.kind == kKnobBitmap && record.bitmap != nullptr)
        canvas.DrawBitmap (*record.bitmap, rect, record.source);
}

} // namespace

void ZDrawKnob::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect) const
{
    DrawRecord (active, canvas, rect);
}

void ZDrawKnob::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/, const ZRect& rect) const
{
    DrawRecord (inactive, canvas, rect);
}

} // namespace tessaly
