#include "channel_strip_editor.h"

#include "channel_strip.h"
#include "channel_strip_effect.h"
#include "channel_strip_storage.h"
#include "comp_graph.h"
#include "eq_graph.h"
#include "file_dialog.h"
#include "guide_lower_dial.h"
#include "guide_upper_dial.h"
#include "kprd_text_button.h"
#include "morph_dial.h"
#include <cmath>

namespace tessaly
{

ZChannel_StripEditor::ZChannel_StripEditor (ZEditorWrapper& surroundings)
    : ZOldHoverGuiEditor (surroundings)
{
    SetSize (layout::kPanelWidth, layout::kPanelHeight); // asked for before it opens
}

ZChannel_StripEditor::~ZChannel_StripEditor ()
{
    Close ();
}

bool ZChannel_StripEditor::AllGuidesIdle () const
{
    if (panel == nullptr)
        return true;
    const auto idle = [] (const Section& section)
    {
        return std::all_of (section.guides.begin (), section.guides.end (),
                            [] (const auto* guide) { return guide->IsIdle (); });
    };
    return idle (panel->comp) && idle (panel->eq);
}

ZChannel_StripEffect* ZChannel_StripEditor::Effect ()
{
    ZEffect* effect = nullptr;
    return GetInfo (kCodeEffect, &effect) ? dynamic_cast<ZChannel_StripEffect*> (effect) : nullptr;
}

bool ZChannel_StripEditor::IsOn (StripParameter parameter) const
{
    return GetStorage () != nullptr && GetStorage ()->GetBool (IndexOf (parameter));
}

void ZChannel_StripEditor::OnCore (ZPluginCore* core)
{
    if (panel == nullptr)
        return; // asked for when the controls are made
    auto* const strip = dynamic_cast<Channel_Strip*> (core);
    panel->compGraph->SetStrip (strip);
    panel->eqGraph->SetStrip (strip);
    panel->compGraph->SetDirty (true);
    panel->eqGraph->SetDirty (true);
}

void ZChannel_StripEditor::OnStorage (ZParameterStorageBase* newStorage)
{
    ZOldHoverGuiEditor::OnStorage (newStorage);
    if (panel == nullptr)
        return;
    auto* const strips = dynamic_cast<ZChannel_StripStorage*> (newStorage);
    panel->nameButton->SetStripStorage (newStorage);
    panel->nameButton->SetDirty (true);
    panel->eqGraph->SetDirty (true); // it depends on the sample rate, too
    SetKeyPointManager (strips != nullptr ? strips->Manager () : nullptr);
}

void ZChannel_StripEditor::SetKeyPointManager (KPRD_Manager* manager)
{
    keyPointManager = manager;
    panel->fileDialog->SetManager (manager);
}

void ZChannel_StripEditor::OnSampleRate (double /*rateHz*/)
{
    if (panel != nullptr)
        panel->eqGraph->SetDirty (true);
}

bool ZChannel_StripEditor::TakesOwnEvent (std::int32_t code) const
{
    return code >= kCodeStateWriteBegins && code <= kCodeStateReadEnds;
}

void ZChannel_StripEditor::OnOwnEvent (std::int32_t code)
{
    if (panel != nullptr && code == kCodeStateReadEnds)
        panel->nameButton->SetDirty (true); // the state brings the name of its set
}

void ZChannel_StripEditor::OnValue (std::int32_t id, float value)
{
    ZOldHoverGuiEditor::OnValue (id, value);
    switch (id)
    {
    case kAboutCloseId:
        return ShowAbout (false);
    case kAboutOpenId:
        return ShowAbout (true);
    case kNameButtonId:
        return OpenFileDialog ();
    case kFileDialogId:
        return CloseFileDialog ();
    default:
        return;
    }
}

void ZChannel_StripEditor::ParameterChanged (std::int32_t id, float value)
{
    ZOldHoverGuiEditor::ParameterChanged (id, value);
    if (panel == nullptr)
        return;
    if (id >= IndexOf (StripParameter::attack) && id <= IndexOf (StripParameter::totalGain))
    {
        auto* const effect = Effect ();
        const auto byMorph = effect != nullptr && effect->TakeMorphWroteParameters ();
        if (!byMorph)
            CheckModified ();
    }
    else if (id == IndexOf (StripParameter::compressorBypass))
    {
        UpdateCompSection ();
        UpdateTotalGain ();
    }
    else if (id == IndexOf (StripParameter::equalizerBypass))
    {
        UpdateEqSection ();
        UpdateTotalGain ();
    }
}

void ZChannel_StripEditor::ShowChangedParameters ()
{
    // The dial has its new position before the parameters that this position has set.
    constexpr std::size_t kMorph = IndexOf (StripParameter::morph);
    if (GetCurrentValues ().size () > kMorph)
        ParameterChanged (kMorph, GetCurrentValues ()[kMorph]);
    ZOldHoverGuiEditor::ShowChangedParameters ();
}

void ZChannel_StripEditor::CheckModified ()
{
    auto* const effect = Effect ();
    if (effect == nullptr || GetStorage () == nullptr)
        return;
    const auto morphed = effect->MorphStepsAt (GetStorage ()->GetPlain (IndexOf (StripParameter::morph)));
    bool differs = false;
    if (morphed)
        for (std::uint32_t column = 0; column < kKeyPointColumns && !differs; ++column)
        {
            const auto id = ZChannel_StripEffect::KeyPointParameter (0, column);
            differs = static_cast<std::int32_t> (std::trunc (GetStorage ()->GetPlain (id))) != (*morphed)[column];
        }
    SetModified (differs);
}

void ZChannel_StripEditor::SetModified (bool on)
{
    if (panel != nullptr)
        panel->morphDial->SetModified (on);
}

} // namespace tessaly
