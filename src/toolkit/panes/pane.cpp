#include "pane.h"

#include "canvas.h"
#include "event.h"
#include "pane_owner.h"
#include "view.h"
#include <utility>

namespace tessaly
{

ZPane::ZPane (ZPaneOwner* paneOwner)
    : owner (paneOwner)
{
}

ZPane::~ZPane ()
{
    if (owner != nullptr)
        owner->ForgetPane (*this);
    if (parent != nullptr)
        parent->RemovePane (this);
}

void ZPane::SetFrame (const ZRect& rect)
{
    if (rect == frame)
        return;
    frame = rect;
    SetDirty (true);
}

void ZPane::MoveTo (ZPoint topLeft)
{
    SetFrame (frame + (topLeft - frame.TopLeft ()));
}

ZPoint ZPane::GetOrigin () const
{
    ZPoint sum;
    for (const ZPane* ancestor = parent; ancestor != nullptr; ancestor = ancestor->parent)
        sum = sum + ancestor->GetPosition ();
    return sum;
}

void ZPane::Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update)
{
    if (IsVisible () && (IsDirty () || NeedsPaint (canvas, update)))
        Draw (canvas, time);
}

void ZPane::Draw (ZCanvas& canvas, std::uint32_t time)
{
    if (IsVisible ())
    {
        const ZCanvasStateSt state (canvas);
        canvas.SetClipRect (GetDrawRect ());
        if (IsActive ())
            DrawActive (canvas, time);
        else
            DrawInactive (canvas, time);
    }
    SetDirty (false);
}

ZMouseInput ZPane::WithDoubleClick (const ZMouseInput& mouse) const
{
    auto marked = mouse;
    marked.buttons = doubleClicked ? mouse.buttons | kDoubleClick : mouse.buttons & ~kDoubleClick;
    return marked;
}

ZMouseInput ZPane::Pressed (ZEvent& event, const ZMouseInput& mouse)
{
    auto pressed = mouse;
    if (doubleClicked) // a third press is a plain one again
    {
        doubleClicked = false;
    }
    else
    {
        // The difference instead of the sum, so that the clock may wrap between the clicks.
        doubleClicked = mouse.time - lastClickTime <= event.GetDoubleClickTime () && mouse.point == lastClickPoint;
        pressed = WithDoubleClick (mouse);
    }
    lastClickTime = mouse.time;
    lastClickPoint = mouse.point;
    return pressed;
}

bool ZPane::MouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsVisible () || !IsMouseEnabled ())
        return false;
    const auto pressed = Pressed (event, mouse);
    if (OpenModal (event, pressed))
        return true;
    const ZEventStateSt state (event, GetOrigin ());
    return OnMouseDown (event, Local (pressed));
}

bool ZPane::MouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsVisible () || !IsMouseEnabled ())
        return MouseUp (event, mouse); // what is disabled in the middle of a drag ends it
    const ZEventStateSt state (event, GetOrigin ());
    return OnMouseMove (event, Local (WithDoubleClick (mouse)));
}

bool ZPane::MouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    const ZEventStateSt state (event, GetOrigin ());
    return OnMouseUp (event, Local (WithDoubleClick (mouse)));
}

bool ZPane::MouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    if (!IsVisible () || !IsWheelEnabled ())
        return false;
    const ZEventStateSt state (event, GetOrigin ());
    return OnMouseWheel (event, Local (wheel));
}

bool ZPane::KeyDown (ZEvent& event, const ZKeyInput& key)
{
    if (!IsVisible () || !IsKeyEnabled ())
        return false;
    const ZEventStateSt state (event, GetOrigin ());
    return OnKeyDown (event, key);
}

bool ZPane::KeyRepeat (ZEvent& event, const ZKeyInput& key)
{
    if (!IsVisible () || !IsKeyEnabled ())
        return false;
    const ZEventStateSt state (event, GetOrigin ());
    return OnKeyRepeat (event, key);
}

bool ZPane::KeyUp (ZEvent& event, const ZKeyInput& key)
{
    const ZEventStateSt state (event, GetOrigin ());
    return OnKeyUp (event, key);
}

bool ZPane::OpenModal (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsVisible () || !IsMouseEnabled ())
        return false;
    const ZEventStateSt state (event, GetOrigin ());
    if (!OnOpenModal (event, Local (mouse)))
        return false;
    if (owner != nullptr)
        owner->SetModalPane (*this);
    return true;
}

bool ZPane::CloseModal (bool commit)
{
    auto* const holder = owner; // the pane may end in its handler
    const auto result = OnCloseModal (commit);
    if (holder != nullptr)
        holder->ReleaseModalPane (*this); // which looks at nothing but its address
    return result;
}

void ZPane::MouseEnter (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsVisible () || !IsMouseEnabled ())
        return;
    if (owner != nullptr)
        owner->ShowTooltip (*this);
    const ZEventStateSt state (event, GetOrigin ());
    OnMouseEnter (event, Local (mouse));
}

void ZPane::MouseExit (ZEvent& event, const ZMouseInput& mouse)
{
    if (owner != nullptr)
        owner->HideTooltip ();
    const ZEventStateSt state (event, GetOrigin ());
    OnMouseExit (event, Local (mouse));
}

void ZPane::Idle (ZEvent& event, const ZMouseInput& mouse)
{
    const ZEventStateSt state (event, GetOrigin ());
    OnIdle (event, Local (mouse));
}

ZPane* ZPane::FindPane (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsVisible () || !IsMouseEnabled ())
        return nullptr;
    const ZEventStateSt state (event, GetOrigin ());
    return HitTest (event, Local (mouse)) != 0 ? this : nullptr;
}

void ZPane::Show ()
{
    if (visible)
        return;
    visible = true;
    SetDirty (true);
}

void ZPane::Hide ()
{
    if (!visible)
        return;
    visible = false;
    SetDirty (false);
}

void ZPane::ShowById (std::int32_t paneId)
{
    if (IsAddressed (paneId))
        Show ();
}

void ZPane::HideById (std::int32_t paneId)
{
    if (IsAddressed (paneId))
        Hide ();
}

bool ZPane::IsVisible () const
{
    return visible && (parent == nullptr || parent->IsVisible ());
}

void ZPane::SetDirtyById (std::int32_t paneId, bool on)
{
    if (IsAddressed (paneId))
        SetDirty (on);
}

bool ZPane::IsDirty () const
{
    return dirty || (parent != nullptr && parent->IsDirty ());
}

void ZPane::SetActive (bool on)
{
    if (on == active)
        return;
    active = on;
    SetDirty (true);
}

void ZPane::SetActiveById (std::int32_t paneId, bool on)
{
    if (IsAddressed (paneId))
        SetActive (on);
}

bool ZPane::IsActive () const
{
    return active && (parent == nullptr || parent->IsActive ());
}

void ZPane::SetMouseEnabledById (std::int32_t paneId, bool on)
{
    if (IsAddressed (paneId))
        SetMouseEnabled (on);
}

bool ZPane::IsMouseEnabled () const
{
    return mouseEnabled && (parent == nullptr || parent->IsMouseEnabled ());
}

void ZPane::SetWheelEnabledById (std::int32_t paneId, bool on)
{
    if (IsAddressed (paneId))
        SetWheelEnabled (on);
}

bool ZPane::IsWheelEnabled () const
{
    return wheelEnabled && (parent == nullptr || parent->IsWheelEnabled ());
}

void ZPane::SetKeyEnabledById (std::int32_t paneId, bool on)
{
    if (IsAddressed (paneId))
        SetKeyEnabled (on);
}

bool ZPane::IsKeyEnabled () const
{
    return keyEnabled && (parent == nullptr || parent->IsKeyEnabled ());
}

void ZPane::SetTooltip (std::string text)
{
    tooltip = std::move (text);
    if (owner != nullptr)
        owner->CreateTooltip ();
}

std::int32_t ZPane::HitTest (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    return GetHitRect ().Contains (mouse.point) ? 1 : 0;
}

bool ZPane::NeedsPaint (const ZCanvas& canvas, const ZRect& update) const
{
    if (!IsVisible () || update.IsZero ())
        return false;
    auto local = update;
    canvas.RectToLocal (local);
    return OverlapsUpdate (local);
}

bool ZPane::OverlapsUpdate (const ZRect& update) const
{
    return GetDrawRect ().Overlaps (update);
}

} // namespace tessaly
