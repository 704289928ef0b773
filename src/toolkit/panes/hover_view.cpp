#include "hover_view.h"

namespace tessaly
{

namespace
{

ZRect Inside (const ZRect& rect)
{
    return rect - rect.TopLeft ();
}

} // namespace

ZHoverView::ZHoverView (ZPaneOwner* paneOwner, const ZRect& rect)
    : ZView (paneOwner, rect)
    , lowerView (paneOwner, Inside (rect))
    , upperView (paneOwner, Inside (rect))
{
    AddPane (&lowerView);
    AddPane (&upperView);
}

void ZHoverView::SetFrame (const ZRect& rect)
{
    ZView::SetFrame (rect);
    lowerView.SetFrame (Inside (rect));
    upperView.SetFrame (Inside (rect));
}

void ZHoverView::PrepareOffscreens (const ZCanvas& canvas, const ZRect& rect)
{
    const auto newLower = lowerLayer.Prepare (canvas, rect);
    const auto newUpper = upperLayer.Prepare (canvas, rect);
    if (newLower || newUpper)
        SetDirty (true);
}

void ZHoverView::DeleteOffscreens ()
{
    lowerLayer.Delete ();
    upperLayer.Delete ();
}

bool ZHoverView::KeepsPixelsFor (const ZCanvas& canvas)
{
    if (!IsVisible () || &canvas == lowerLayer.GetCanvas () || &canvas == upperLayer.GetCanvas ())
        return false;
    PrepareOffscreens (canvas, GetFrame ());
    return lowerLayer.GetCanvas () != nullptr;
}

void ZHoverView::Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update)
{
    if (!KeepsPixelsFor (canvas))
    {
        ZView::Paint (canvas, time, update);
    }
    else if (IsDirty () || NeedsPaint (canvas, update))
    {
        Draw (canvas, time);
    }
    else
    {
        PaintChild (lowerView, *lowerLayer.GetCanvas (), time, {});
        DrawUpper (canvas, time);
    }
}

void ZHoverView::Draw (ZCanvas& canvas, std::uint32_t time)
{
    if (!KeepsPixelsFor (canvas))
    {
        ZView::Draw (canvas, time);
        return;
    }
    ZPane::Draw (canvas, time);
    DrawChild (lowerView, *lowerLayer.GetCanvas (), time);
    DrawUpper (canvas, time);
    SetDirty (false);
}

void ZHoverView::DrawUpper (ZCanvas& canvas, std::uint32_t time)
{
    lowerLayer.CopyTo (*upperLayer.GetCanvas ());
    DrawChild (upperView, *upperLayer.GetCanvas (), time);
    upperLayer.CopyTo (canvas);
}

} // namespace tessaly
