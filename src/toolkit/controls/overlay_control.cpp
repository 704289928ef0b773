#include "overlay_control.h"

#include "canvas.h"
#include "pane_owner.h"
#include "scoped_flag.h"
#include "view.h"

namespace tessaly
{

ZOverlayImp* ZOverlayControl::OpenOverlay () const
{
    auto* overlay = GetOverlay ();
    return overlay != nullptr && overlay->IsOpen () ? overlay : nullptr;
}

ZRect ZOverlayControl::GetDrawRect () const
{
    const auto* open = drawsOwnLook ? nullptr : OpenOverlay ();
    return open != nullptr ? open->GetOpenRect () - GetOrigin () : ZControl::GetDrawRect ();
}

ZRect ZOverlayControl::GetHitRect () const
{
    const auto* open = OpenOverlay ();
    return open != nullptr ? open->GetOpenRect () - GetOrigin () : ZControl::GetHitRect ();
}

void ZOverlayControl::Draw (ZCanvas& canvas, std::uint32_t time)
{
    auto* open = OpenOverlay ();
    if (open == nullptr || !open->HidesControl ())
        DrawOwnLook (canvas, time);
    if (open != nullptr && IsVisible ())
    {
        const ZCanvasStateSt state (canvas);
        canvas.SetClipRect (GetDrawRect ());
        if (IsActive ())
            open->DrawActive (canvas, time);
        else
            open->DrawInactive (canvas, time);
    }
    SetDirty (false);
}

void ZOverlayControl::DrawOwnLook (ZCanvas& canvas, std::uint32_t time)
{
    const ScopedFlag guard (drawsOwnLook);
    ZControl::Draw (canvas, time);
}

bool ZOverlayControl::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnMouseDown (event, mouse) : ZControl::OnMouseDown (event, mouse);
}

bool ZOverlayControl::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnMouseMove (event, mouse) : ZControl::OnMouseMove (event, mouse);
}

bool ZOverlayControl::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnMouseUp (event, mouse) : ZControl::OnMouseUp (event, mouse);
}

bool ZOverlayControl::OnMouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnMouseWheel (event, wheel) : ZControl::OnMouseWheel (event, wheel);
}

bool ZOverlayControl::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnKeyDown (event, key) : ZControl::OnKeyDown (event, key);
}

bool ZOverlayControl::OnKeyRepeat (ZEvent& event, const ZKeyInput& key)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnKeyRepeat (event, key) : ZControl::OnKeyRepeat (event, key);
}

bool ZOverlayControl::OnKeyUp (ZEvent& event, const ZKeyInput& key)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnKeyUp (event, key) : ZControl::OnKeyUp (event, key);
}

bool ZOverlayControl::OnResetClick (ZEvent& event, const ZMouseInput& mouse)
{
    auto* open = OpenOverlay ();
    return open != nullptr ? open->OnMouseDown (event, mouse) : ZControl::OnResetClick (event, mouse);
}

void ZOverlayControl::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    if (auto* overlay = GetOverlay ())
        overlay->OnIdle (event, mouse);
    ZControl::OnIdle (event, mouse);
}

void ZOverlayControl::RepaintSurface ()
{
    if (GetOwner () == nullptr)
        return;
    if (auto* root = GetOwner ()->GetRootView ())
        root->SetDirty (true);
}

} // namespace tessaly
