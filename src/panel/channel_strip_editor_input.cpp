#include "amx_font_text_edit.h"
#include "channel_strip_editor.h"
#include "channel_strip_parameters.h"
#include "drive_dial.h"
#include "eq_graph.h"
#include "event.h"
#include "file_dialog.h"
#include "guide_upper_dial.h"
#include "kprd_text_button.h"
#include "morph_dial.h"

namespace tessaly
{

namespace
{

constexpr std::uint32_t kDoubleClickMs = 500;
/// A key that was pressed this long ago blocks the mouse no more: hosts do not deliver every release.
constexpr std::uint32_t kKeyReleaseMs = 500;

constexpr auto kDrive = IndexOf (StripParameter::drive);
constexpr auto kMorph = IndexOf (StripParameter::morph);

} // namespace

void ZChannel_StripEditor::ClearBusy ()
{
    mouseBusy = false;
    keysBusy = false;
}

void ZChannel_StripEditor::RememberGraphBand ()
{
    if (panel != nullptr)
        graphBand = panel->eqGraph->GetCurrentBand ();
}

bool ZChannel_StripEditor::MouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    event.SetDoubleClickTime (kDoubleClickMs);
    if (keysBusy && mouse.time - lastKeyTime > kKeyReleaseMs)
    {
        keysBusy = false;
        if (panel != nullptr)
            panel->eqGraph->EndKeyEdit (); // it would take no press for as long
    }
    if (keysBusy)
        return GetCapturePane () != nullptr;
    auto* const touched = GetFocusPane ();
    RememberGraphBand ();
    mouseBusy = ZOldHoverGuiEditor::MouseDown (event, mouse);
    FocusMoved (GetCapturePane (), touched);
    return mouseBusy;
}

bool ZChannel_StripEditor::MouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (keysBusy)
        return GetCapturePane () != nullptr;
    mouseBusy = ZOldHoverGuiEditor::MouseMove (event, mouse);
    return mouseBusy;
}

bool ZChannel_StripEditor::MouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    if (keysBusy)
        return false;
    mouseBusy = false;
    return ZOldHoverGuiEditor::MouseUp (event, mouse);
}

bool ZChannel_StripEditor::MouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    if (keysBusy)
        return false;
    auto* const touched = GetFocusPane ();
    RememberGraphBand ();
    const auto taken = ZOldHoverGuiEditor::MouseWheel (event, wheel);
    FocusMoved (GetHoverPane (), touched);
    return taken;
}

bool ZChannel_StripEditor::KeyDown (ZEvent& event, const ZKeyInput& key)
{
    if (mouseBusy)
        return false;
    if (panel != nullptr)
    {
        if (GetFocusPane () == panel->nameButton && IsDialogOpen ())
            SetFocusPane (panel->fileDialog);
        else if (GetFocusPane () == panel->fileDialog && !IsDialogOpen ())
            SetFocusPane (panel->nameButton);
    }
    lastKeyTime = key.time;
    keysBusy = ZOldHoverGuiEditor::KeyDown (event, key);
    return keysBusy;
}

bool ZChannel_StripEditor::KeyRepeat (ZEvent& event, const ZKeyInput& key)
{
    lastKeyTime = key.time;
    return ZOldHoverGuiEditor::KeyRepeat (event, key);
}

bool ZChannel_StripEditor::KeyUp (ZEvent& event, const ZKeyInput& key)
{
    if (mouseBusy)
        return false;
    keysBusy = false;
    return ZOldHoverGuiEditor::KeyUp (event, key);
}

void ZChannel_StripEditor::OnFocusLost ()
{
    ClearBusy ();
    auto* const touched = dynamic_cast<ZControl*> (GetFocusPane ());
    if (touched == nullptr || panel == nullptr)
        return;
    if (auto* const dial = dynamic_cast<ZAMX_EditDialImp*> (touched))
        return dial->EndEditingIfActive (true);
    OnMessage (kEditingEnded, touched);
    if (touched == panel->eqGraph)
        panel->eqGraph->ClearEditFlags ();
    else if (auto* const text = dynamic_cast<ZAMX_FontTextEdit*> (touched))
        text->ClearEditing ();
}

ZAMX_GuideUpperDial* ZChannel_StripEditor::FindGuide (std::int32_t id) const
{
    auto* const guide = panel->comp.guides.FindById (id);
    return guide != nullptr ? guide : panel->eq.guides.FindById (id);
}

void ZChannel_StripEditor::FocusMoved (const ZPane* newPane, ZPane* oldPane)
{
    if (panel == nullptr || newPane == nullptr || oldPane == nullptr || newPane->GetId () == oldPane->GetId ())
        return;
    const auto toGraph = newPane == panel->eqGraph;
    const auto toMorph = newPane->GetId () == kMorph;
    // A wheel beside the markers touches no band: what the old pane had lit must not stay.
    const auto touchesBand = toGraph && panel->eqGraph->IsTouched ();
    const auto band = touchesBand ? panel->eqGraph->GetCurrentBand () : std::int32_t{ kNoBand };

    if (oldPane->GetId () == kDrive)
    {
        panel->driveDial->EndEditingIfActive (!toMorph);
        if (toGraph)
            LightGraphBand (band, true);
    }
    else if (auto* const guide = FindGuide (oldPane->GetId ()))
    {
        guide->CloseIfOpen (!toMorph && !toGraph);
        if (toGraph)
        {
            SetHighlight (*guide, false);
            LightGraphBand (band, true);
        }
    }
    else if (oldPane == panel->morphDial)
    {
        panel->morphDial->EndEditingIfActive (true);
        if (toGraph)
            LightGraphBand (band, true);
        else
            HighlightTag (newPane->GetId (), true);
    }
    else if (oldPane == panel->eqGraph)
    {
        panel->eqGraph->EndBandEdit ();
        LightGraphBand (graphBand, false); // it has moved since: what took the touch has lit its own
        HighlightTag (newPane->GetId (), true);
    }
}

} // namespace tessaly
