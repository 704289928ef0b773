#include "dial.h"
#include "event.h"
#include "gui_editor.h"
#include "scoped_flag.h"
#include "slider.h"
#include <utility>

namespace tessaly
{

namespace
{

/// Asks the modal pane and, if that did not take the event and is another one, the second. Both by reference to the
/// editor's own pointers: either pane may end while the first is asked.
template <typename Call>
bool Offer (ZPane* const& modal, ZPane* const& second, Call call)
{
    const auto* asked = modal;
    return (modal != nullptr && call (*modal)) || (second != nullptr && second != asked && call (*second));
}

} // namespace

void ZGuiEditor::SetModalPane (ZPane& pane)
{
    if (&pane != modalPane)
        EndModal ();
    modalPane = &pane;
}

void ZGuiEditor::ReleaseModalPane (const ZPane& pane)
{
    if (&pane == modalPane)
        modalPane = nullptr;
}

void ZGuiEditor::EndModal ()
{
    // Cleared first: a field that loses its window's focus meanwhile would close a second time.
    if (auto* pane = std::exchange (modalPane, nullptr))
        pane->CloseModal (false);
}

void ZGuiEditor::FollowPointer (ZEvent& event, const ZMouseInput& mouse)
{
    if (rootView == nullptr)
        return;
    auto* before = hoverPane;
    const auto free = modalPane == nullptr && capturePane == nullptr;
    auto* found = free ? rootView->FindPane (event, mouse) : nullptr;
    if (found == before)
        return;
    hoverPane = found;
    if (before != nullptr)
        before->MouseExit (event, mouse);
    if (hoverPane != nullptr)
        hoverPane->MouseEnter (event, mouse);
}

void ZGuiEditor::Idle (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsOpen ())
        return;
    CarryOutEvents ();
    PollMeters ();
    PollParameters ();
    const auto hidden = modalPane != nullptr && !modalPane->IsVisible (); // its page may have gone
    if (std::exchange (valuesChanged, false) || hidden)
        EndModal ();
    FollowPointer (event, mouse);
    OnIdle (event, mouse);
    for (std::int32_t i = 0; i < views.GetCount (); ++i) // by index: a pane may leave in its idle call
        if (views.At (i)->GetParent () == nullptr)       // all others hear of it from their parents
            views.At (i)->Idle (event, mouse);
    if (tooltip != nullptr)
        tooltip->Idle (mouse.time);
}

ZPane* ZGuiEditor::PaneAt (ZEvent& event, const ZMouseInput& mouse)
{
    return IsOpen () ? rootView->FindPane (event, mouse) : nullptr;
}

ZPane* ZGuiEditor::PressTarget (ZEvent& event, const ZMouseInput& mouse)
{
    // An open menu that is drawn on the surface reaches beyond its view and lies over what comes later in the tree.
    if (modalPane != nullptr && modalPane->FindPane (event, mouse) == modalPane)
        return modalPane;
    return PaneAt (event, mouse);
}

bool ZGuiEditor::MouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsOpen () || inputLocked)
        return capturePane != nullptr;
    const ScopedFlag lock (inputLocked); // a control that calls back is not entered again
    if (capturePane != nullptr)
        capturePane->MouseUp (event, mouse);
    capturePane = nullptr;
    pressedPane = PressTarget (event, mouse);
    if (modalPane != pressedPane)
        EndModal ();
    if (pressedPane != nullptr)
    {
        focusPane = pressedPane;
        if (pressedPane->MouseDown (event, mouse))
            capturePane = pressedPane; // null by now if the press ended it
    }
    pressedPane = nullptr;
    return capturePane != nullptr;
}

bool ZGuiEditor::MouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsOpen () || inputLocked)
        return capturePane != nullptr;
    const ScopedFlag lock (inputLocked);
    if (capturePane != nullptr && !capturePane->MouseMove (event, mouse))
        capturePane = nullptr;
    return capturePane != nullptr;
}

bool ZGuiEditor::MouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsOpen () || inputLocked)
        return false;
    const ScopedFlag lock (inputLocked);
    if (capturePane != nullptr)
        capturePane->MouseUp (event, mouse);
    capturePane = nullptr;
    if (modalPane == nullptr)
        FollowPointer (event, mouse);
    return false;
}

bool ZGuiEditor::MouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    if (!IsOpen ())
        return false;
    const auto turn = [&] (ZPane& pane)
    {
        const auto hovered = &pane == hoverPane;
        const auto taken = pane.MouseWheel (event, wheel);
        if (taken && hovered)
            focusPane = hoverPane; // null by now if the turn ended it
        return taken;
    };
    return Offer (modalPane, hoverPane, turn) || OnMouseWheel (event, wheel);
}

bool ZGuiEditor::KeyDown (ZEvent& event, const ZKeyInput& key)
{
    if (!IsOpen ())
        return false;
    const auto press = [&] (ZPane& pane) { return pane.KeyDown (event, key); };
    return Offer (modalPane, focusPane, press) || OnKeyDown (event, key);
}

bool ZGuiEditor::KeyRepeat (ZEvent& event, const ZKeyInput& key)
{
    if (!IsOpen ())
        return false;
    const auto repeat = [&] (ZPane& pane) { return pane.KeyRepeat (event, key); };
    return Offer (modalPane, focusPane, repeat) || OnKeyRepeat (event, key);
}

bool ZGuiEditor::KeyUp (ZEvent& event, const ZKeyInput& key)
{
    if (!IsOpen ())
        return false;
    const auto release = [&] (ZPane& pane) { return pane.KeyUp (event, key); };
    return Offer (modalPane, focusPane, release) || OnKeyUp (event, key);
}

void ZGuiEditor::FocusGained ()
{
    if (!IsOpen ())
        return;
    EndModal ();
    OnFocusGained ();
}

void ZGuiEditor::FocusLost ()
{
    if (!IsOpen ())
        return;
    EndModal ();
    OnFocusLost ();
}

void ZGuiEditor::SetDialMode (std::int32_t mode)
{
    for (auto* control : controls)
        if (auto* dial = dynamic_cast<ZDial*> (control))
            dial->SetDragMode (mode);
        else if (auto* slider = dynamic_cast<ZSlider*> (control))
            slider->SetDragMode (mode);
}

} // namespace tessaly
