#include "offscreen_view.h"

namespace tessaly
{

void ZOffscreenView::PrepareOffscreen (const ZCanvas& canvas, const ZRect& rect)
{
    if (layer.Prepare (canvas, rect))
        SetDirty (true);
}

bool ZOffscreenView::KeepsPixelsFor (const ZCanvas& canvas)
{
    if (!IsVisible () || &canvas == layer.GetCanvas ())
        return false;
    PrepareOffscreen (canvas, GetFrame ());
    return layer.GetCanvas () != nullptr;
}

void ZOffscreenView::Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update)
{
    if (!KeepsPixelsFor (canvas))
    {
        ZView::Paint (canvas, time, update);
        return;
    }
    if (NeedsPaint (canvas, update)) // asked here: the update is in coordinates of the canvas, not of the pixels
        SetDirty (true);
    ZView::Paint (*layer.GetCanvas (), time, {});
    layer.CopyTo (canvas);
}

void ZOffscreenView::Draw (ZCanvas& canvas, std::uint32_t time)
{
    const auto keeps = KeepsPixelsFor (canvas);
    ZView::Draw (keeps ? *layer.GetCanvas () : canvas, time);
    if (keeps)
        layer.CopyTo (canvas);
}

} // namespace tessaly
