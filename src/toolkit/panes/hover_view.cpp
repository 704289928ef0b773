#include "hover_view.h"

namespace tessaly
{

namespace
{

ZRect Inside (const ZRect& rect)
{
    return rect - rect.TopLeft ();
}

/// Whether a view has a visible pane, in views within it, too.
bool ShowsAny (const ZView& view)
{
    for (std::int32_t i = 0; i < view.GetPaneCount (); ++i)
    {
        const auto* const pane = view.GetPane (i);
        const auto* const within = dynamic_cast<const ZView*> (pane);
        if (pane->IsVisible () && (within == nullptr || ShowsAny (*within)))
            return true;
    }
    return false;
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

void ZHoverView::Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update)
{
    if (!IsVisible ())
        return;
    if (IsDirty () || NeedsPaint (canvas, update))
        Draw (canvas, time);
    else if (ShowsAny (upperView))
        DrawLayers (canvas, time, lowerLayer.Prepare (canvas, GetFrame ()));
    else if (lowerLayer.GetCanvas () != nullptr) // nothing floats any more: what it covered appears
    {
        DrawLayers (canvas, time, false);
        lowerLayer.Delete ();
    }
    else
        PaintChild (lowerView, canvas, time, update);
}

void ZHoverView::Draw (ZCanvas& canvas, std::uint32_t time)
{
    if (IsVisible () && ShowsAny (upperView))
    {
        lowerLayer.Prepare (canvas, GetFrame ());
        DrawLayers (canvas, time, true);
    }
    else
    {
        lowerLayer.Delete ();
        if (IsVisible ())
        {
            ZPane::Draw (canvas, time);
            DrawChild (lowerView, canvas, time);
        }
    }
    SetDirty (false);
}

/// The lower layer into its own pixels, whole or where dirty; these onto the canvas, and the upper layer over them.
void ZHoverView::DrawLayers (ZCanvas& canvas, std::uint32_t time, bool whole)
{
    auto* const kept = lowerLayer.GetCanvas ();
    if (kept == nullptr) // an empty view
        return;
    if (whole)
    {
        ZPane::Draw (canvas, time);
        DrawChild (lowerView, *kept, time);
    }
    else
        PaintChild (lowerView, *kept, time, {});
    lowerLayer.CopyTo (canvas);
    DrawChild (upperView, canvas, time);
}

} // namespace tessaly
