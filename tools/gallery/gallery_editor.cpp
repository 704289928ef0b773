#include "gallery_editor.h"

#include "anim_dial.h"
#include "anim_on_off_button.h"
#include "anim_toggle_switch.h"
#include "canvas_imp.h"
#include "click_buttons.h"
#include "control_builder.h"
#include "drawn_images.h"
#include "exhibits.h"
#include "hover_view.h"
#include "matrix_menus.h"
#include "multi_text_view.h"
#include "offscreen_view.h"
#include "palette.h"
#include "parameters.h"
#include "pictures.h"
#include "sliders.h"
#include "switches.h"
#include "text_edits.h"
#include "vu_meters.h"

namespace tessaly::gallery
{

namespace
{

constexpr std::int32_t kMeterFrames = 17;
constexpr std::int32_t kNoParameter = kParameterCount; // id of what shows no value
constexpr std::int32_t kMarkSize = 16;

} // namespace

template <typename Control>
Control* GalleryEditor::Find (std::int32_t id) const
{
    for (auto* control : GetControls ())
        if (auto* found = control->GetId () == id ? dynamic_cast<Control*> (control) : nullptr)
            return found;
    return nullptr;
}

template <typename Control>
Control* GalleryEditor::AddAnim (ZView& view, const ZRect& rect, std::int32_t id, const char* strip,
                                 const char* offStrip, std::int32_t frames)
{
    const auto place = view.GetPosition () + rect.TopLeft (); // of a view of the root
    auto control = CreateAnim<Control> (this, rect, id, GetBitmap (strip), frames, rect.Height (), {});
    control->SetBitmapActive (GetBitmap (kPanelImage), place);
    control->SetBitmapInactive (GetBitmap (kPanelImage), place);
    control->SetAnimInactive (GetBitmap (offStrip), frames, rect.Height (), {});
    return AddControl (view, std::move (control));
}

void GalleryEditor::CreateControls ()
{
    const ZRect whole{ 0, 0, kPanelWidth, kPanelHeight };
    auto panel = std::make_unique<ZBitmapPicture> (this, whole, kNoParameter);
    panel->SetBitmapActive (GetBitmap (kPanelImage), {});
    AddPane (*GetRootView (), std::move (panel));

    std::vector<ZControlDescription> records;
    for (const auto& exhibit : Exhibits ())
        records.push_back (exhibit.record);
    ZControlBuilder (*this).BuildControls (records);
    FinishDescribed ();
    CreateTexts ();
    CreateOffscreen ();
    CreateHover ();
    CreateSection ();
}

void GalleryEditor::DestroyControls ()
{
    section = nullptr;
    mark = nullptr;
}

/// What a description has no field for.
void GalleryEditor::FinishDescribed ()
{
    Find<ZDial> (kGain)->SetTooltip ("Gain: drag up and down, with shift finely; control resets");
    Find<ZDial> (kPan)->SetDragMode (kDialJump);
    Find<ZRotarySwitch> (kShape)->SetDragMode (kDialJump);
    Find<ZKnobSlider> (kDepth)->SetDragMode (kSliderPage);
    Find<ZDrawTextEdit> (kTime)->SetValueToText (TextWithoutUnit);
    auto* notes = Find<ZDrawMatrixMenu> (kNote);
    notes->SetRows (4);
    for (const std::int32_t black : { 1, 3, 6, 8, 10 })
        notes->SetItemEnabled (black, false);
}

void GalleryEditor::CreateTexts ()
{
    auto stamp = std::make_unique<ZBitmapClickButton> (this, kStampPlace.rect, kStamp);
    stamp->SetBitmapActive (GetBitmap ("STAMP.PNG"), {});
    AddControl (*GetRootView (), std::move (stamp));

    auto ratio = std::make_unique<ZFontTextEdit> (this, kRatioPlace.rect, kRatio);
    ratio->SetColorActive (kGroove);
    ratio->SetFontActive (GetBitmap ("DIGITS.PNG"), kListedGlyphs, kListedCell.x, kListedCell.y,
                          kAlignCenter | kAlignMiddle, {});
    AddControl (*GetRootView (), std::move (ratio));

    AddVuMeter (*GetRootView (), kMeterPlace.rect, 1, kPanelImage);
}

/// @param ground  the image behind the whole view
void GalleryEditor::AddVuMeter (ZView& view, const ZRect& rect, std::int32_t index, const char* ground)
{
    auto meter =
        CreateAnim<ZAnimVuMeter> (this, rect, index, GetBitmap ("METER.PNG"), kMeterFrames, rect.Height (), {});
    meter->SetBitmapActive (GetBitmap (ground), rect.TopLeft ());
    AddMeter (view, std::move (meter));
}

void GalleryEditor::CreateOffscreen ()
{
    const auto rect = kOffscreenPlace.rect;
    auto& view = *AddPane (*GetRootView (), std::make_unique<ZOffscreenView> (this, rect));
    auto ground = std::make_unique<ZBitmapPicture> (this, rect - rect.TopLeft (), kNoParameter);
    ground->SetBitmapActive (GetBitmap ("GROUND.PNG"), {});
    AddPane (view, std::move (ground));
    for (const std::int32_t index : { 0, 1 })
    {
        const ZRect place{ 20 + index * 50, 6, 36 + index * 50, 74 };
        AddVuMeter (view, place, index, "GROUND.PNG");
    }
}

void GalleryEditor::CreateHover ()
{
    const auto rect = kHoverPlace.rect;
    auto& view = *AddPane (*GetRootView (), std::make_unique<ZHoverView> (this, rect));
    auto ground = std::make_unique<ZBitmapPicture> (this, rect - rect.TopLeft (), kNoParameter);
    ground->SetBitmapActive (GetBitmap ("GROUND.PNG"), {});
    AddPane (view.GetLowerView (), std::move (ground));
    mark = AddPane (view.GetUpperView (),
                    CreateAnim<ZAnimPicture> (this, ZRect{ 0, 52, kMarkSize, 52 + kMarkSize }, kNoParameter,
                                              GetBitmap ("MARK.PNG"), 1, kMarkSize, ZPoint{}));
    const ZRect line{ 8, 8, rect.Width () - 8, 32 };
    auto& texts = *AddPane (view.GetUpperView (), std::make_unique<ZMultiTextView> (this, line));
    AddHint (texts, kGain, "Gain: a dial, dragged straight");
    AddHint (texts, kPan, "Pan: a dial that jumps to the pointer");
    AddHint (texts, kLevel, "Level: a slider with a thumb");
    AddHint (texts, kNote, "Note: a menu in columns");
}

void GalleryEditor::AddHint (ZMultiTextView& texts, std::int32_t id, const char* text)
{
    const auto frame = texts.GetFrame ();
    auto hint = std::make_unique<ZDrawTextEdit> (this, frame - frame.TopLeft (), id);
    hint->SetFontActive (kInk, kAlignLeft | kAlignMiddle, 2, 0);
    hint->SetText (text);
    AddPane (texts, std::move (hint)); // and not AddControl: it says a text, not the parameter's value
}

void GalleryEditor::CreateSection ()
{
    const auto rect = kSectionPlace.rect;
    section = AddPane (*GetRootView (), std::make_unique<ZView> (this, rect));
    AddAnim<ZAnimDial> (*section, { 4, 12, 60, 68 }, kGain, "DIAL.PNG", "DIAL_OFF.PNG", 51);
    auto* toggle =
        AddAnim<ZAnimToggleSwitch> (*section, { 70, 10, 98, 70 }, kPolarity, "TOGGLE.PNG", "TOGGLE_OFF.PNG", 3);
    toggle->SetStyle (kVertical | kReversed);
    auto* latch =
        AddAnim<ZAnimOnOffButton> (*section, { 104, 14, 204, 34 }, kLatch3, "LATCH3.PNG", "LATCH3_OFF.PNG", 3);
    latch->SetActiveFramePreset (3);
    latch->SetInactiveFramePreset (3);

    auto time = std::make_unique<ZDrawTextEdit> (this, ZRect{ 104, 44, 204, 66 }, kTime);
    time->SetColorActive (kGroove);
    time->SetColorInactive (kFaceDark);
    time->SetFontActive (kInk, kAlignCenter | kAlignMiddle, 2, 0);
    time->SetFontInactive (kFaceLight, kAlignCenter | kAlignMiddle, 2, 0);
    AddControl (*section, std::move (time));
}

void GalleryEditor::ParameterChanged (std::int32_t id, float value)
{
    ZGuiEditor::ParameterChanged (id, value);
    if (id == kPower && section != nullptr)
    {
        section->SetActive (value >= 0.5f);
        section->SetMouseEnabled (value >= 0.5f);
        section->SetDirty (true);
    }
}

/// The mark follows the blend.
void GalleryEditor::OnIdle (ZEvent& /*event*/, const ZMouseInput& /*mouse*/)
{
    const auto* parameters = GetStorage ();
    if (mark == nullptr || parameters == nullptr)
        return;
    const auto room = static_cast<float> (kHoverPlace.rect.Width () - kMarkSize - 16);
    const auto left = 8 + static_cast<std::int32_t> (parameters->GetNormalized (kBlend) * room);
    mark->MoveTo ({ left, mark->GetPosition ().y });
}

} // namespace tessaly::gallery
