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
#include "kprd_text_button.h"
#include "morph_dial.h"
#include "panel_texts.h"
#include "pictures.h"
#include "strip_text_analyzer.h"
#include "vu_meters.h"

namespace tessaly
{

using namespace layout;

namespace
{

/// What every dial of the panel has in common: a strip of 101 frames with columns for its looks, over the panel.
template <typename Dial>
std::unique_ptr<Dial> MakeDial (ZPaneOwner* owner, const ZRect& frame, std::int32_t id, ZBitmap* strip, ZBitmap* panel,
                                std::int32_t inactiveColumn)
{
    auto dial = std::make_unique<Dial> (owner, frame, id);
    dial->SetBitmapActive (panel, frame.TopLeft ());
    dial->SetBitmapInactive (panel, frame.TopLeft ());
    dial->SetAnimActive (strip, kDialFrames, frame.Height (), {});
    dial->SetAnimInactive (strip, kDialFrames, frame.Height (), { inactiveColumn * frame.Width (), 0 });
    dial->SetColumns (kNormalColumn, kBrightColumn);
    dial->SetDragMode (kFirstDragMode);
    return dial;
}

} // namespace

void ZChannel_StripEditor::CreateControls ()
{
    panel = std::make_unique<Controls> ();
    SetFrontBackground (kPanelImage);
    ClearBusy ();
    KPRD_Manager* manager = nullptr;
    keyPointManager = GetInfo (kCodeKeyPointManager, &manager) ? manager : nullptr;

    CreateCompBack ();
    CreateKneeSwitch ();
    CreateCompDials ();
    CreateCompTexts ();
    CreateCompMeter ();
    CreateEqBack ();
    CreateEqDials ();
    CreateEqTexts ();
    CreateBandLeds ();
    CreateEqMeters ();
    CreateBypassButtons ();
    CreateMorphDial ();
    CreateCompGraph ();
    CreateEqGraph ();
    CreateNameButton ();
    CreateFileDialog ();
    CreateAbout ();
    CreateOnOverlay ();

    ZPluginCore* core = nullptr;
    OnCore (GetInfo (kCodeCore, &core) ? core : nullptr);
    SetKeyPointManager (keyPointManager);
    UpdateCompSection ();
    UpdateEqSection ();
    UpdateTotalGain ();
    ArrangeMeters ();
}

void ZChannel_StripEditor::DestroyControls ()
{
    panel.reset ();
    keyPointManager = nullptr;
    ClearBusy ();
}

ZBitmapPicture* ZChannel_StripEditor::MakePicture (ZView& layer, const PicturePlace& place)
{
    return AddControl (layer, CreateBitmapPicture (this, place.frame, place.id, GetBitmap (place.image), place.source));
}

void ZChannel_StripEditor::MakeLowerDial (Section& section, const SmallDialPlace& place)
{
    const auto frame = At (place.topLeft.x, place.topLeft.y, kSmallDialSize, kSmallDialSize);
    auto dial =
        MakeDial<ZAMX_GuideLowerDial> (this, frame, IndexOf (place.parameter), GetBitmap (SmallDialImage (place.kind)),
                                       GetBitmap (kPanelImage), kInactiveColumn);
    dial->SetDegreeRange (kDialBegin, kDialEnd);
    dial->SetCenter (kSmallDialCentre);
    section.dials.Add (AddControl (GetFrontLayer (), std::move (dial)));
}

void ZChannel_StripEditor::MakeGuide (Section& section, const SmallDialPlace& place)
{
    const ZRect frame = At (place.topLeft.x, place.topLeft.y, kSmallDialSize, kSmallDialSize);
    auto guide = std::make_unique<ZAMX_GuideUpperDial> (this, frame, IndexOf (place.parameter));
    guide->SetStretchActive (GetBitmap (RingImage (place.kind)), kDialFrames, kRingSize, kRingSize, {});
    guide->SetGeometry (place.topLeft, { kSmallDialSize, kSmallDialSize }, { kRingSize, kRingSize });
    guide->SetDegreeRange (kDialBegin, kDialEnd);
    guide->SetCenter (kRingCentre);
    guide->SetDragMode (kFirstDragMode);
    guide->Hide ();
    guide->SetActive (false);
    guide->SetMouseEnabled (false);

    auto* const added = AddControl (GetFrontUpperLayer (), std::move (guide));
    auto* const dial = section.dials.FindById (added->GetId ());
    added->SetLowerDial (dial);
    dial->SetGuide (added);
    section.guides.Add (added);
}

ZAMX_FontTextEdit* ZChannel_StripEditor::MakeValueText (const ValueTextPlace& place, bool inLowerLayer)
{
    const auto id = IndexOf (place.parameter);
    auto* const font = GetBitmap (kValueFontImage);
    const auto column = inLowerLayer ? kNormalColumn : kBrightColumn;
    constexpr std::int32_t kAlignment = kAlignRight | kAlignMiddle;

    auto text = std::make_unique<ZAMX_FontTextEdit> (this, place.frame, id);
    text->SetFlags (inLowerLayer ? kEditOnDoubleClick | kDragUpAndDown : 0);
    text->SetColumns (column, kBrightColumn);
    text->SetFontActive (font, kValueCharacters, kValueCellWidth, kValueCellHeight, kAlignment,
                         { column * kValueCellWidth, 0 });
    text->SetFontInactive (font, kValueCharacters, kValueCellWidth, kValueCellHeight, kAlignment,
                           { kInactiveColumn * kValueCellWidth, 0 });
    if (place.parameter == StripParameter::ratio)
        text->SetTextAnalyzer (std::make_unique<ZRatioTextAnalyzer> (id));
    else
        text->SetTextAnalyzer (std::make_unique<ZK2XTextAnalyzer> (id));
    if (!inLowerLayer)
    {
        text->Hide ();
        return AddControl (GetFrontUpperLayer (), std::move (text));
    }
    text->SetBitmapActive (GetBitmap (kPanelImage), place.frame.TopLeft ());
    text->SetBitmapInactive (GetBitmap (kPanelImage), place.frame.TopLeft ());
    return AddControl (GetFrontLayer (), std::move (text));
}

void ZChannel_StripEditor::MakeValueTexts (Section& section, const ValueTextPlace& place)
{
    auto* const text = MakeValueText (place, true);
    auto* const guideText = MakeValueText (place, false);
    section.texts.Add (text);
    section.guideTexts.Add (guideText);
    section.guides.FindById (text->GetId ())->SetTexts (text, guideText);
}

ZAnimVuMeter* ZChannel_StripEditor::MakeMeter (const MeterPlace& place)
{
    auto* const strip = GetBitmap (place.image);
    auto meter =
        CreateAnim<ZAnimVuMeter> (this, place.frame, place.meter, strip, place.frames, place.frame.Height (), {});
    meter->SetAnimInactive (strip, place.frames, place.frame.Height (), { place.frame.Width (), 0 });
    return AddMeter (GetFrontLayer (), std::move (meter));
}

ZAMX_AnimOnOffButton* ZChannel_StripEditor::MakeBypassButton (const BypassPlace& place)
{
    auto button = CreateAnim<ZAMX_AnimOnOffButton> (this, place.frame, IndexOf (place.parameter),
                                                    GetBitmap (place.image), kBypassFrames, place.frame.Height (), {});
    constexpr std::int32_t kAtPressAndRelease = 3;
    constexpr std::int32_t kFrameOfWhatIsMeant = 2; // frame 0 for off and going off, 1 for on and going on
    button->SetBehaviour (kAtPressAndRelease);
    button->SetActiveFramePreset (kFrameOfWhatIsMeant);
    button->SetPressArea (place.pressArea);
    return AddControl (GetFrontLayer (), std::move (button));
}

AMX_ClickButton* ZChannel_StripEditor::MakeClickArea (ZView& layer, std::int32_t id, const ZRect& frame)
{
    auto area = std::make_unique<AMX_ClickButton> (this, frame, id);
    area->SetBehaviour (kClickPress);
    area->SetRepeatInterval (kClickRepeatMs);
    return AddControl (layer, std::move (area));
}

void ZChannel_StripEditor::CreateCompBack ()
{
    panel->compBack = MakePicture (GetFrontLayer (), kCompBack);
    panel->compBack->Hide ();
}

void ZChannel_StripEditor::CreateKneeSwitch ()
{
    auto knee = std::make_unique<ZAMX_KneeSwitch> (this, kKneeSwitch, IndexOf (StripParameter::knee));
    knee->SetImages (GetBitmap (kKneeImage), GetBitmap (kKneeImage), kKneePositions, kKneeSwitch.Height ());
    knee->SetRegions (kKneeRegions.data (), kKneePositions);
    panel->kneeSwitch = AddControl (GetFrontLayer (), std::move (knee));
}

void ZChannel_StripEditor::CreateCompDials ()
{
    for (const auto& place : kCompDials)
        MakeLowerDial (panel->comp, place);
    CreateDriveDial ();
    for (const auto& place : kCompDials)
        MakeGuide (panel->comp, place);
}

void ZChannel_StripEditor::CreateDriveDial ()
{
    auto dial = MakeDial<ZAMX_DriveDial> (this, kDriveDial, IndexOf (StripParameter::drive), GetBitmap (kDriveImage),
                                          GetBitmap (kPanelImage), kInactiveColumn);
    dial->SetDegreeRange (kDialBegin, kDialEnd);
    dial->SetCenter (kDriveCentre);
    panel->driveDial = AddControl (GetFrontLayer (), std::move (dial));
}

void ZChannel_StripEditor::CreateCompTexts ()
{
    for (const auto& place : kCompTexts)
        MakeValueTexts (panel->comp, place);
    panel->driveText = MakeValueText (kDriveText, true);
    panel->comp.texts.Add (panel->driveText);
}

void ZChannel_StripEditor::CreateCompMeter ()
{
    panel->compMeter = MakeMeter (kCompMeter);
}

void ZChannel_StripEditor::CreateEqBack ()
{
    panel->eqBack = MakePicture (GetFrontLayer (), kEqBack);
    panel->eqBack->Hide ();
    panel->totalGainBack = MakePicture (GetFrontLayer (), kTotalGainBack);
    panel->totalGainBack->Hide ();
}

void ZChannel_StripEditor::CreateEqDials ()
{
    for (const auto& place : kEqDials)
        MakeLowerDial (panel->eq, place);
    for (const auto& place : kEqDials)
        MakeGuide (panel->eq, place);
}

void ZChannel_StripEditor::CreateEqTexts ()
{
    for (const auto& place : kEqTexts)
        MakeValueTexts (panel->eq, place);
}

void ZChannel_StripEditor::CreateBandLeds ()
{
    for (std::size_t i = 0; i < kBandLeds.size (); ++i)
    {
        const auto& place = kBandLeds[i];
        panel->bandLeds[i] = AddControl (GetFrontLayer (),
                                         CreateAnim<ZAnimPicture> (this, place.frame, place.id, GetBitmap (place.image),
                                                                   kLedFrames, place.frame.Height (), {}));
    }
}

void ZChannel_StripEditor::CreateEqMeters ()
{
    for (std::size_t i = 0; i < kEqMeters.size (); ++i)
        panel->eqMeters[i] = MakeMeter (kEqMeters[i]);
    panel->meterCover = MakePicture (GetFrontLayer (), kMeterCover);
}

void ZChannel_StripEditor::CreateBypassButtons ()
{
    panel->compBypass = MakeBypassButton (kCompBypass);
    panel->eqBypass = MakeBypassButton (kEqBypass);
}

void ZChannel_StripEditor::CreateMorphDial ()
{
    auto dial = MakeDial<ZAMX_MorphDial> (this, kMorphDial, IndexOf (StripParameter::morph), GetBitmap (kMorphImage),
                                          GetBitmap (kPanelImage), kNormalColumn);
    dial->SetDegreeRange (kMorphBegin, kMorphEnd);
    dial->SetCenter (kMorphCentre);
    dial->SetMorphColumns (kNormalColumn, kBrightColumn, kModifiedColumn);
    dial->SetKnobRect (kMorphKnob);
    dial->SetHitRect (kMorphKnob);
    dial->SetLabelRect (kMorphLabel);
    panel->morphDial = AddControl (GetFrontLayer (), std::move (dial));
}

void ZChannel_StripEditor::CreateCompGraph ()
{
    auto graph = std::make_unique<ZAMX_CompGraph> (this, layout::kCompGraph, kCompGraphId);
    graph->SetPlotRect (kCompPlot);
    graph->SetBackgrounds (GetBitmap (kCompGraphImage), GetBitmap (kCompGraphImage));
    graph->SetColors (kCompCurve, kCompCurveInactive);
    graph->SetLineWidth (kCompCurveWidth);
    panel->compGraph = AddControl (GetFrontLayer (), std::move (graph));
}

void ZChannel_StripEditor::CreateEqGraph ()
{
    auto graph = std::make_unique<ZAMX_EqGraph> (this, layout::kEqGraph, kEqGraphId);
    graph->SetPlotRect (kEqPlot);
    graph->SetBackgrounds (GetBitmap (kEqGraphImage), GetBitmap (kEqGraphImage));
    for (const std::int32_t band : { kAllBands, kLowBand, kMidBand, kHighBand })
    {
        const auto& style = band == kAllBands ? kSumCurve : kBandCurve;
        graph->SetCurveStyle (band, kEqCurveWidth, style.normal, style.bright, style.inactive, style.alpha);
    }
    graph->SetMarkerSource (kMarkerSource, kMarkerInactiveFrame);
    graph->SetMarkers (GetBitmap (kMarkerImages[0]), GetBitmap (kMarkerImages[1]), GetBitmap (kMarkerImages[2]));
    panel->eqGraph = AddControl (GetFrontLayer (), std::move (graph));
}

void ZChannel_StripEditor::CreateNameButton ()
{
    auto button = std::make_unique<ZAMX_KPRDTextButton> (this, layout::kNameButton, kNameButtonId);
    button->SetBitmapActive (GetBitmap (kNameImage), {});
    button->SetFontSize (kListFontSize);
    button->SetTextRect (kNameText);
    button->SetTextColor (kNameColor);
    button->SetBehaviour (kClickPress);
    button->SetRepeatInterval (kClickRepeatMs);
    button->SetStripStorage (GetStorage ());
    panel->nameButton = AddControl (GetFrontLayer (), std::move (button));
}

void ZChannel_StripEditor::CreateFileDialog ()
{
    auto dialog = std::make_unique<ZAMX_FileDialog> (this, layout::kDialog, kFileDialogId);
    dialog->SetBackground (GetBitmap (kDialogImage));
    dialog->SetFontSize (kListFontSize);
    dialog->SetRows (kDialogRows);
    dialog->SetTextColor (kDialogText.red, kDialogText.green, kDialogText.blue);
    dialog->SetSelectionColor (kDialogSelection.red, kDialogSelection.green, kDialogSelection.blue);
    dialog->SetFolderIcon (GetBitmap (kFolderImage), kFolderIcon, kFolderFrames, kFolderGap);
    dialog->SetThumbStyle (kDialogThumbInset, kDialogThumbInset, kDialogThumb.red, kDialogThumb.green,
                           kDialogThumb.blue);
    for (const auto& place : kDialogItems)
        dialog->SetItem (place.item, place.image.empty () ? nullptr : GetBitmap (place.image), place.frames,
                         place.rect);
    dialog->Hide ();
    panel->fileDialog = AddControl (GetFrontUpperLayer (), std::move (dialog)); // meters move under it
}

void ZChannel_StripEditor::CreateAbout ()
{
    panel->aboutOpen = MakeClickArea (GetFrontLayer (), kAboutOpenId, kAboutOpenArea);

    auto picture = std::make_unique<AMX_AboutPicture> (this, kWholePanel, kAboutPictureId);
    picture->SetBitmapActive (GetBitmap (kAboutImage), {});
    picture->SetLine1 (kAboutVersionLine);
    picture->SetLine1Rect (kAboutLine1);
    picture->SetLine2 (kAboutCopyrightLine);
    picture->SetLine2Rect (kAboutLine2);
    picture->SetFontSize (kAboutFontSize);
    picture->SetTextColor (kAboutColor);
    picture->Hide ();
    panel->aboutPicture = AddControl (GetFrontUpperLayer (), std::move (picture));

    panel->aboutClose = MakeClickArea (GetFrontUpperLayer (), kAboutCloseId, kWholePanel);
    panel->aboutClose->Hide ();
}

void ZChannel_StripEditor::CreateOnOverlay ()
{
    panel->morphOverlay = MakePicture (GetFrontUpperLayer (), kMorphOverlay);
    panel->morphOverlay->Hide ();
}

void ZChannel_StripEditor::ArrangeMeters ()
{
    panel->eqMeters[1]->Hide ();
    panel->meterCover->Show ();
    panel->eqMeters[0]->SetFrame (kMonoOutputMeter);
    Invalidate (true);
}

} // namespace tessaly
