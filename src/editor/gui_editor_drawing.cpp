#include "canvas.h"
#include "gui_editor.h"
#include <algorithm>

namespace tessaly
{

namespace
{

/// Copies all of `whole` but the inside of `hole`: the strips above, left of, right of and below it.
void CopyAround (ZCanvas& target, const ZCanvas& source, const ZRect& whole, const ZRect& hole)
{
    const ZRect inner{ std::clamp (hole.left, whole.left, whole.right), std::clamp (hole.top, whole.top, whole.bottom),
                       std::clamp (hole.right, whole.left, whole.right),
                       std::clamp (hole.bottom, whole.top, whole.bottom) };
    const ZCanvasStateSt state (target);
    target.ClearClip ();
    for (const auto& strip : { ZRect{ whole.left, whole.top, whole.right, inner.top },
                               ZRect{ whole.left, inner.top, inner.left, inner.bottom },
                               ZRect{ inner.right, inner.top, whole.right, inner.bottom },
                               ZRect{ whole.left, inner.bottom, whole.right, whole.bottom } })
        target.CopyCanvas (source, strip, strip.TopLeft ()); // an empty strip copies nothing
}

} // namespace

void ZGuiEditor::Draw (ZCanvas& canvas, const ZRect& update, std::uint32_t time)
{
    if (rootView == nullptr)
        return;
    if (modalPane == nullptr)
    {
        rootView->Paint (canvas, time, update);
    }
    else if (!canvas.IsOffscreen ())
    {
        rootView->Paint (canvas, time, update);
        DrawModal (canvas, time);
    }
    else if (const auto whole = rootView->GetFrame (); !whole.IsEmpty ())
    {
        ZOffscreenCanvas behind (canvas, whole);
        rootView->Draw (behind, time);
        DrawModal (canvas, time);
        CopyAround (canvas, behind, whole, modalPane->GetDrawRect () + modalPane->GetOrigin ());
    }
}

void ZGuiEditor::DrawModal (ZCanvas& canvas, std::uint32_t time)
{
    const ZCanvasStateSt state (canvas);
    canvas.SetOrigin (canvas.GetOrigin () + modalPane->GetOrigin ());
    modalPane->Draw (canvas, time);
}

void ZGuiEditor::Redraw (const ZRect& rect)
{
    if (IsOpen () && rootView->GetFrame ().Overlaps (rect))
        rootView->SetDirty (true);
}

void ZGuiEditor::Invalidate (bool all)
{
    if (all && IsOpen ())
        rootView->SetDirty (true);
}

bool ZGuiEditor::NeedsRedraw () const
{
    if (!IsOpen () || !rootView->IsVisible ())
        return false;
    // A pane outside of the tree is never painted, so its flag would stay set for ever.
    return std::any_of (views.begin (), views.end (),
                        [this] (const auto& pane)
                        {
                            const auto placed = pane.get () == rootView || pane->GetParent () != nullptr;
                            return placed && pane->IsVisible () && pane->IsDirty ();
                        });
}

} // namespace tessaly
