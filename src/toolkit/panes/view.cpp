#include "view.h"

#include "canvas.h"
#include "event.h"
#include <algorithm>

namespace tessaly
{

ZView::ZView (ZPaneOwner* paneOwner, const ZRect& rect)
    : ZPane (paneOwner)
{
    ZPane::SetFrame (rect);
}

ZView::~ZView ()
{
    RemoveAllPanes ();
}

bool ZView::AddPane (ZPane* pane)
{
    if (pane == this || !children.Add (pane))
        return false;
    if (auto* before = pane->GetParent ())
        before->RemovePane (pane);
    pane->SetParent (this);
    return true;
}

bool ZView::RemovePane (ZPane* pane)
{
    if (children.Remove (pane) == nullptr)
        return false;
    pane->SetParent (nullptr);
    return true;
}

void ZView::RemoveAllPanes ()
{
    while (GetPaneCount () > 0)
        RemovePane (children.At (GetPaneCount () - 1));
}

void ZView::FitToPanes ()
{
    auto rect = GetFrame ();
    for (const auto* child : children)
    {
        const auto inside = child->GetFrame ();
        rect.right = std::max (rect.right, rect.left + inside.right);
        rect.bottom = std::max (rect.bottom, rect.top + inside.bottom);
    }
    SetFrame (rect);
}

void ZView::Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update)
{
    if (!IsVisible ())
        return;
    if (IsDirty () || NeedsPaint (canvas, update))
        Draw (canvas, time);
    else
        PaintChildren (canvas, time, update);
}

void ZView::Draw (ZCanvas& canvas, std::uint32_t time)
{
    if (IsVisible ())
    {
        ZPane::Draw (canvas, time);
        DrawChildren (canvas, time);
    }
    SetDirty (false);
}

ZPane* ZView::FindPane (ZEvent& event, const ZMouseInput& mouse)
{
    if (ZPane::FindPane (event, mouse) == nullptr)
        return nullptr;
    for (auto i = children.GetCount () - 1; i >= 0; --i)
        if (auto* found = children.At (i)->FindPane (event, mouse))
            return found;
    return nullptr;
}

void ZView::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    const auto root = ZMouseInput{ mouse.point + GetOrigin (), mouse.buttons, mouse.modifiers, mouse.time };
    for (std::int32_t i = 0; i < children.GetCount (); ++i) // by index: a child may leave in its idle call
        children.At (i)->Idle (event, root);
}

void ZView::PaintChild (ZPane& child, ZCanvas& canvas, std::uint32_t time, const ZRect& update)
{
    const ZCanvasStateSt state (canvas);
    canvas.SetOrigin (canvas.GetOrigin () + GetPosition ());
    child.Paint (canvas, time, update);
}

void ZView::PaintChildren (ZCanvas& canvas, std::uint32_t time, const ZRect& update)
{
    for (auto* child : children)
        PaintChild (*child, canvas, time, update);
}

void ZView::DrawChild (ZPane& child, ZCanvas& canvas, std::uint32_t time)
{
    const ZCanvasStateSt state (canvas);
    canvas.SetOrigin (canvas.GetOrigin () + GetPosition ());
    child.Draw (canvas, time);
}

void ZView::DrawChildren (ZCanvas& canvas, std::uint32_t time)
{
    for (auto* child : children)
        DrawChild (*child, canvas, time);
}

} // namespace tessaly
