#include "multi_button.h"

#include "list_steps.h"
#include <algorithm>
#include <utility>

namespace tessaly
{

ZMultiButton::ZMultiButton (ZPaneOwner* paneOwner, std::int32_t controlId)
    : ZControl (paneOwner, {}, controlId)
{
}

ZMultiButton::~ZMultiButton ()
{
    DeleteAllButtons ();
}

ZControl* ZMultiButton::AddButton (std::int32_t index, std::unique_ptr<ZControl> button)
{
    if (button == nullptr)
        return nullptr;
    button->AddListener (this);
    button->SetBool (index == GetIndex ()); // a group may have its value before its buttons
    entries.push_back ({ index, std::move (button) });
    return entries.back ().button.get ();
}

void ZMultiButton::DeleteAllButtons ()
{
    EndPress ();
    entries.clear ();
}

void ZMultiButton::EndPress ()
{
    capturedButton = nullptr;
    pressIndex = kNoIndex;
    releaseIndex = kNoIndex;
}

void ZMultiButton::SetValue (float newValue)
{
    ZControl::SetValue (newValue);
    const auto selected = NormalizedToInt (newValue, GetStep ());
    for (const auto& entry : entries)
        entry.button->SetBool (entry.index == selected);
}

void ZMultiButton::OnValue (std::int32_t /*id*/, float sent)
{
    const auto wanted = sent >= 0.5f ? pressIndex : releaseIndex;
    if (wanted != kNoIndex && wanted != GetIndex ())
        BroadcastValue (GetId (), IntToNormalized (wanted, GetStep ()));
}

bool ZMultiButton::IsDirty () const
{
    return ZControl::IsDirty () || std::ranges::any_of (entries, [] (const Entry& e) { return e.button->IsDirty (); });
}

bool ZMultiButton::OverlapsUpdate (const ZRect& update) const
{
    return ZControl::OverlapsUpdate (update) ||
           std::ranges::any_of (entries, [&] (const Entry& e) { return e.button->GetDrawRect ().Overlaps (update); });
}

void ZMultiButton::DrawButtons (ZCanvas& canvas, std::uint32_t time)
{
    for (const auto& entry : entries)
        entry.button->Draw (canvas, time);
}

void ZMultiButton::DrawActive (ZCanvas& canvas, std::uint32_t time)
{
    DrawButtons (canvas, time);
}

void ZMultiButton::DrawInactive (ZCanvas& canvas, std::uint32_t time)
{
    DrawButtons (canvas, time);
}

std::int32_t ZMultiButton::HitTest (ZEvent& event, const ZMouseInput& mouse)
{
    auto hit = ZControl::HitTest (event, mouse);
    for (const auto& entry : entries)
    {
        hit = entry.button->HitTest (event, mouse);
        if (hit != 0)
            break;
    }
    return hit;
}

bool ZMultiButton::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    EndPress ();
    const auto hit = std::find_if (entries.rbegin (), entries.rend (),
                                   [&] (const Entry& e) { return e.button->HitTest (event, mouse) != 0; });
    if (hit == entries.rend ())
        return false;
    pressIndex = hit->index;
    releaseIndex = hit->index == GetIndex () ? offIndex : GetIndex ();
    capturedButton = hit->button.get ();
    if (capturedButton->OnMouseDown (event, mouse))
        return true;
    EndPress ();
    return false;
}

bool ZMultiButton::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (capturedButton == nullptr)
        return false;
    if (capturedButton->OnMouseMove (event, mouse))
        return true;
    EndPress ();
    return false;
}

bool ZMultiButton::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    if (capturedButton == nullptr)
        return false;
    const auto result = capturedButton->OnMouseUp (event, mouse);
    EndPress ();
    return result;
}

void ZMultiButton::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    for (const auto& entry : entries)
        entry.button->OnIdle (event, mouse);
}

} // namespace tessaly
