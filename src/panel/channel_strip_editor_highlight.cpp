#include "amx_font_text_edit.h"
#include "channel_strip_editor.h"
#include "channel_strip_parameters.h"
#include "drive_dial.h"
#include "eq_graph.h"
#include "guide_lower_dial.h"
#include "knee_switch.h"
#include "morph_dial.h"
#include "pictures.h"

namespace tessaly
{

namespace
{

constexpr auto kDrive = IndexOf (StripParameter::drive);
constexpr auto kMorph = IndexOf (StripParameter::morph);
constexpr auto kTotalGain = IndexOf (StripParameter::totalGain);

} // namespace

void ZChannel_StripEditor::OnMessage (std::int32_t message, ZControl* sender)
{
    if (sender == nullptr || panel == nullptr)
        return;
    if (message == kEditingEnded || message == kEditingStarted)
        SetHighlight (*sender, message == kEditingStarted);
    else if (message == kTouchStarted || message == kTouchGoesOn || message == kTouchEnded)
        TextEditState (*sender, message);
}

void ZChannel_StripEditor::SetHighlight (const ZControl& control, bool on)
{
    if (control.GetId () != kEqGraphId)
        return HighlightTag (control.GetId (), on);
    const auto band = ParametersOf (panel->eqGraph->GetCurrentBand ()); // once: lighting moves the current band
    for (const auto id : { band.frequency, band.gain, band.q })
        if (id != kNoParameter)
            HighlightTag (id, on);
}

void ZChannel_StripEditor::TextEditState (const ZControl& text, std::int32_t message)
{
    if (text.GetId () == kDrive)
        panel->driveDial->StartEditing (panel->driveText->GetLastTouch ()); // goes out after its hold time
    else
        HighlightTag (text.GetId (), message != kTouchEnded);
}

void ZChannel_StripEditor::HighlightTag (std::int32_t id, bool on)
{
    if (id == kMorph)
    {
        panel->morphDial->SetBright (on, true);
        if (on)
            panel->morphOverlay->Show ();
        else
            panel->morphOverlay->Hide ();
    }
    HighlightComp (id, on);
    HighlightEq (id, on);
}

void ZChannel_StripEditor::HighlightComp (std::int32_t id, bool on)
{
    const auto compOn = IsCompOn ();
    for (auto* text : panel->comp.texts)
    {
        const auto parameter = text->GetId ();
        if (parameter != id && id != kMorph)
            continue;
        if (parameter == kDrive) // the morph does not move it, and it is live without the compressor, too
        {
            text->SetBright (on && id != kMorph, true);
            panel->driveDial->SetBright (on && id != kMorph, true);
            continue;
        }
        text->SetBright (on, compOn);
        panel->comp.dials.FindById (parameter)->SetBright (on, compOn);
    }
    if (id == kMorph)
        panel->kneeSwitch->SetBright (on, compOn);
}

void ZChannel_StripEditor::HighlightEq (std::int32_t id, bool on)
{
    const auto eqOn = IsEqOn ();
    std::int32_t lit = kNoBand;
    for (auto* text : panel->eq.texts)
    {
        const auto parameter = text->GetId ();
        if (parameter != id && id != kMorph)
            continue;
        const auto redraw = eqOn || (parameter == kTotalGain && IsCompOn ());
        text->SetBright (on, redraw);
        panel->eq.dials.FindById (parameter)->SetBright (on, redraw);
        if (eqOn)
            if (const auto band = LightBand (parameter, on); band != kNoBand)
                lit = band;
    }
    if (!on)
        panel->eqGraph->SetCurrentBand (kNoBand);
    else
        panel->eqGraph->SetCurrentBand (eqOn && id == kMorph ? std::int32_t{ kAllBands } : lit);
}

std::int32_t ZChannel_StripEditor::LightBand (std::int32_t id, bool on)
{
    const auto band = BandOf (id);
    if (band != kNoBand)
        panel->bandLeds[static_cast<std::size_t> (band - kLowBand)]->SetBool (on);
    return band;
}

void ZChannel_StripEditor::LightGraphBand (std::int32_t band, bool on)
{
    panel->eqGraph->SetCurrentBand (band);
    SetHighlight (*panel->eqGraph, on);
}

} // namespace tessaly
