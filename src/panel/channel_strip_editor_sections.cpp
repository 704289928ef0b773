#include "about_picture.h"
#include "amx_font_text_edit.h"
#include "bypass_button.h"
#include "channel_strip_editor.h"
#include "channel_strip_effect.h"
#include "click_area.h"
#include "comp_graph.h"
#include "drive_dial.h"
#include "eq_graph.h"
#include "file_dialog.h"
#include "guide_lower_dial.h"
#include "guide_upper_dial.h"
#include "knee_switch.h"
#include "kprd_manager.h"
#include "kprd_text_button.h"
#include "morph_dial.h"
#include "pictures.h"
#include "vu_meters.h"

namespace tessaly
{

namespace
{

constexpr auto kTotalGain = IndexOf (StripParameter::totalGain);

void ShowIf (bool shown, ZPane& pane)
{
    if (shown)
        pane.Show ();
    else
        pane.Hide ();
}

void Enable (ZPane& pane, bool input, bool look)
{
    pane.SetMouseEnabled (input);
    pane.SetActive (look);
}

} // namespace

bool ZChannel_StripEditor::IsDialogOpen () const
{
    return panel->fileDialog->IsVisible ();
}

/// One small dial with all that belongs to it. A ring that is open closes at once and unlights what it lit.
void ZChannel_StripEditor::EnableDial (Section& section, std::int32_t id, bool input, bool look)
{
    Enable (*section.dials.FindById (id), input, look);
    Enable (*section.texts.FindById (id), input, look);
    section.guideTexts.FindById (id)->SetActive (look);
    section.guides.FindById (id)->CloseAtOnce ();
}

void ZChannel_StripEditor::UpdateCompSection ()
{
    const auto look = IsCompOn ();
    const auto input = look && !IsDialogOpen ();
    ShowIf (!look, *panel->compBack);
    for (auto* dial : panel->comp.dials)
        EnableDial (panel->comp, dial->GetId (), input, look);
    Enable (*panel->kneeSwitch, input, look);
    panel->compMeter->SetActive (look);
    panel->compGraph->SetActive (look);
    Invalidate (true);
}

void ZChannel_StripEditor::UpdateEqSection ()
{
    const auto look = IsEqOn ();
    const auto input = look && !IsDialogOpen ();
    ShowIf (!look, *panel->eqBack);
    for (auto* dial : panel->eq.dials)
        if (dial->GetId () != kTotalGain)
            EnableDial (panel->eq, dial->GetId (), input, look);
    for (auto* led : panel->bandLeds)
    {
        led->SetBool (false);
        led->SetActive (look);
    }
    SetHighlight (*panel->eqGraph, false); // a marker that is held or turned hears nothing of its end
    panel->eqGraph->SetCurrentBand (kNoBand);
    Enable (*panel->eqGraph, input, look);
    Invalidate (true);
}

void ZChannel_StripEditor::UpdateTotalGain ()
{
    const auto look = IsCompOn () || IsEqOn ();
    const auto input = look && !IsDialogOpen ();
    ShowIf (!look, *panel->totalGainBack);
    EnableDial (panel->eq, kTotalGain, input, look);
    for (auto* meter : panel->eqMeters)
        meter->SetActive (look);
    Invalidate (true);
}

void ZChannel_StripEditor::SetControlsEnabled (bool enable)
{
    panel->compBypass->SetMouseEnabled (enable);
    panel->driveDial->SetMouseEnabled (enable);
    panel->driveText->SetMouseEnabled (enable);
    if (IsCompOn ())
    {
        for (auto* dial : panel->comp.dials)
            dial->SetMouseEnabled (enable);
        for (auto* text : panel->comp.texts)
            text->SetMouseEnabled (enable);
        panel->kneeSwitch->SetMouseEnabled (enable);
    }

    panel->eqBypass->SetMouseEnabled (enable);
    const auto isLive = [this] (std::int32_t id) { return IsEqOn () || (id == kTotalGain && IsCompOn ()); };
    for (auto* dial : panel->eq.dials)
        if (isLive (dial->GetId ()))
            dial->SetMouseEnabled (enable);
    for (auto* text : panel->eq.texts)
        if (isLive (text->GetId ()))
            text->SetMouseEnabled (enable);
    panel->eqGraph->SetCurrentBand (kNoBand);
    panel->eqGraph->SetMouseEnabled (enable && IsEqOn ());
    panel->morphDial->SetMouseEnabled (enable);
    panel->aboutOpen->SetMouseEnabled (enable);
}

void ZChannel_StripEditor::OpenFileDialog ()
{
    if (panel == nullptr || IsDialogOpen ())
        return;
    SetControlsEnabled (false);
    panel->nameButton->SetMouseEnabled (false);
    panel->nameButton->SetBool (true);
    panel->fileDialog->Show ();
}

void ZChannel_StripEditor::CloseFileDialog ()
{
    if (panel == nullptr || !IsDialogOpen ())
        return;
    SetControlsEnabled (true);
    panel->nameButton->SetMouseEnabled (true);
    panel->nameButton->SetBool (false);
    panel->fileDialog->Hide ();
    Invalidate (true); // what it covered has to appear
    if (panel->fileDialog->WasAccepted ())
        LoadChosenSet ();
}

void ZChannel_StripEditor::LoadChosenSet ()
{
    const auto* const chosen = keyPointManager != nullptr ? keyPointManager->Current () : nullptr;
    if (chosen == nullptr || chosen->IsFolder ())
        return;
    if (auto* const effect = Effect ())
    {
        effect->LoadKeyPointBlock (chosen->Data (), static_cast<std::int32_t> (chosen->Size ()));
        effect->SetKeyPointName (chosen->Name ());
        constexpr auto kMorph = IndexOf (StripParameter::morph);
        effect->ApplyMorph (kMorph, effect->GetParameter (kMorph));
    }
    SetModified (false);
    panel->nameButton->SetDirty (true);
    EndParameterEdit (kEveryPane); // the host is told of each parameter that changed
}

void ZChannel_StripEditor::ShowAbout (bool on)
{
    if (panel == nullptr)
        return;
    SetControlsEnabled (!on);
    ShowIf (on, *panel->aboutPicture);
    ShowIf (on, *panel->aboutClose);
    Invalidate (true);
}

} // namespace tessaly
