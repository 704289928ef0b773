#include "multi_text_view.h"

#include "pane_owner.h"

namespace tessaly
{

bool ZMultiTextView::AddPane (ZPane* pane)
{
    if (pane != nullptr)
    {
        pane->SetMouseEnabled (false);
        pane->Hide ();
    }
    return ZView::AddPane (pane);
}

void ZMultiTextView::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    const auto* editor = GetOwner ();
    const auto* captured = editor != nullptr ? editor->GetCapturePane () : nullptr;
    const auto* hover = editor != nullptr ? editor->GetHoverPane () : nullptr;
    const auto source = captured != nullptr ? Source::kDrag : hover != nullptr ? Source::kPointer : Source::kNothing;
    auto wanted = shownId;
    if (captured != nullptr)
        wanted = captured->GetId ();
    else if (mouse.time - holdStart > holdTime) // a difference, so that the clock may wrap
        wanted = hover != nullptr ? hover->GetId () : kNewPaneId;
    if (previousSource == Source::kDrag && source != Source::kDrag && HasText (shownId))
    {
        holdStart = mouse.time;
        wanted = shownId;
    }
    if (wanted != shownId)
        ShowText (wanted);
    previousSource = source;
    shownId = wanted;
    ZView::OnIdle (event, mouse);
}

bool ZMultiTextView::HasText (std::int32_t paneId) const
{
    for (std::int32_t i = 0; i < GetPaneCount (); ++i)
        if (GetPane (i)->GetId () == paneId)
            return true;
    return false;
}

void ZMultiTextView::ShowText (std::int32_t wantedId)
{
    for (std::int32_t i = 0; i < GetPaneCount (); ++i)
    {
        auto* pane = GetPane (i);
        if (wantedId != kNewPaneId && pane->GetId () == wantedId)
            pane->Show ();
        else
            pane->Hide ();
    }
    SetDirty (true);
}

} // namespace tessaly
