#include "control_builder.h"

#include "anim_dial.h"
#include "anim_on_off_button.h"
#include "anim_toggle_switch.h"
#include "canvas_imp.h"
#include "click_buttons.h"
#include "gui_editor.h"
#include "matrix_menus.h"
#include "multi_button.h"
#include "pictures.h"
#include "sliders.h"
#include "switches.h"
#include "text_edits.h"

namespace tessaly
{

namespace
{

bool IsSized (std::int32_t width, std::int32_t height)
{
    return width != 0 && height != 0;
}

ZRect RectOf (std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height)
{
    return { x, y, x + width, y + height };
}

std::int32_t AlignmentOf (const ZControlDescription& record)
{
    const auto across = record.alignment == 0 ? kAlignLeft : record.alignment == 1 ? kAlignCenter : kAlignRight;
    return across | kAlignMiddle;
}

std::int32_t StyleOf (std::int32_t orientation)
{
    switch (orientation)
    {
    case 0:
        return kHorizontal | kNormal;
    case 1:
        return kHorizontal | kReversed;
    case 2:
        return kVertical | kNormal;
    default:
        return kVertical | kReversed;
    }
}

/// The size of kFontSizes that fits into a text of this height.
std::int32_t SizeIndexOf (std::int32_t height)
{
    return height <= 9 ? 4 : height <= 11 ? 3 : height <= 13 ? 2 : height <= 17 ? 1 : 0;
}

/// The group of an id, wherever in the controls it stands.
ZMultiButton* FindGroup (const ZGuiEditor& editor, std::int32_t id)
{
    for (auto* control : editor.GetControls ())
        if (auto* group = control->GetId () == id ? dynamic_cast<ZMultiButton*> (control) : nullptr)
            return group;
    return nullptr;
}

} // namespace

void ZControlBuilder::BuildControls (std::span<const ZControlDescription> records)
{
    for (const auto& record : records)
        AddDescribedControl (record, CreateControl (record));
}

ZControlBuilder::Made ZControlBuilder::CreateControl (const ZControlDescription& record)
{
    switch (record.kind)
    {
    case kKindPicture:
    case kKindPicture1:
    case kKindPicture17:
        return CreatePicture (record);
    case kKindAnimPicture:
        return CreateAnimPicture (record);
    case kKindClickButton:
        return CreateClickButton (record);
    case kKindAnimClickButton:
        return CreateAnimClickButton (record);
    case kKindOnOffButton:
        return CreateOnOffButton (record);
    case kKindDial:
        return CreateDial (record);
    case kKindRotarySwitch:
        return CreateRotarySwitch (record);
    case kKindKnobSlider:
        return CreateKnobSlider (record);
    case kKindAnimSlider:
        return CreateAnimSlider (record);
    case kKindSlideSwitch:
        return CreateSlideSwitch (record);
    case kKindToggleSwitch:
        return CreateToggleSwitch (record);
    case kKindRadioButton:
        return CreateRadioButton (record);
    case kKindFontText:
        return CreateFontText (record);
    case kKindText:
        return CreateText (record);
    case kKindAnimMenu:
        return CreateAnimMenu (record);
    case kKindTextMenu:
        return CreateTextMenu (record);
    default:
        return nullptr;
    }
}

void ZControlBuilder::AddDescribedControl (const ZControlDescription& record, Made control)
{
    auto* root = editor.GetRootView ();
    if (control == nullptr || root == nullptr)
        return;
    if (record.target == kTargetMeter)
        editor.AddMeter (*root, std::move (control));
    else
        editor.AddControl (*root, std::move (control));
}

template <typename Control>
std::unique_ptr<Control> ZControlBuilder::Make (const ZControlDescription& record) const
{
    const auto frame = RectOf (record.x, record.y, record.width, record.height);
    return std::make_unique<Control> (&editor, frame, record.id);
}

template <typename Control>
std::unique_ptr<Control> ZControlBuilder::MakeAnimated (const ZControlDescription& record) const
{
    auto control = Make<Control> (record);
    ApplyHitRect (record, *control);
    ApplyAnim (record, *control);
    ApplyWholeBack (record, *control);
    return control;
}

template <typename Look>
void ZControlBuilder::ApplyWholeBack (const ZControlDescription& record, Look& look) const
{
    ApplyBack (record, look);
    ApplyBackColor (record, look);
}

ZControlBuilder::Made ZControlBuilder::CreatePicture (const ZControlDescription& record)
{
    auto picture = Make<ZBitmapPicture> (record);
    ApplyImage (record, *picture);
    return picture;
}

ZControlBuilder::Made ZControlBuilder::CreateAnimPicture (const ZControlDescription& record)
{
    auto picture = Make<ZAnimPicture> (record);
    ApplyAnim (record, *picture);
    ApplyWholeBack (record, *picture);
    return picture;
}

ZControlBuilder::Made ZControlBuilder::CreateClickButton (const ZControlDescription& record)
{
    auto button = Make<ZClickButton> (record);
    ApplyHitRect (record, *button);
    button->SetBehaviour (kClickPress);
    return button;
}

ZControlBuilder::Made ZControlBuilder::CreateAnimClickButton (const ZControlDescription& record)
{
    auto button = MakeAnimated<ZAnimClickButton> (record);
    button->SetBehaviour (kClickPress);
    button->SetActiveFramePreset (record.frameCount == 1 ? 1 : 2);
    return button;
}

ZControlBuilder::Made ZControlBuilder::CreateOnOffButton (const ZControlDescription& record)
{
    auto button = MakeAnimated<ZAnimOnOffButton> (record);
    const auto frames = record.frameCount;
    const auto few = frames == 1 || frames == 2; // none to show that a press is on: so it switches at once, both ways
    button->SetBehaviour (few ? kOffActsAtPress | kOnActsAtPress : kOffActsAtPress | kOnActsAtRelease);
    button->SetActiveFramePreset (few || frames == 3 ? frames : 4);
    return button;
}

ZControlBuilder::Made ZControlBuilder::CreateDial (const ZControlDescription& record)
{
    auto dial = MakeAnimated<ZAnimDial> (record);
    ApplyDial (record, *dial);
    return dial;
}

ZControlBuilder::Made ZControlBuilder::CreateRotarySwitch (const ZControlDescription& record)
{
    auto rotary = MakeAnimated<ZAnimRotarySwitch> (record);
    ApplyDial (record, *rotary);
    return rotary;
}

ZControlBuilder::Made ZControlBuilder::CreateKnobSlider (const ZControlDescription& record)
{
    auto slider = Make<ZKnobSlider> (record);
    ApplyHitRect (record, *slider);
    ApplyKnob (record, *slider);
    ApplyWholeBack (record, *slider);
    ApplySlider (record, *slider);
    return slider;
}

ZControlBuilder::Made ZControlBuilder::CreateAnimSlider (const ZControlDescription& record)
{
    auto slider = MakeAnimated<ZAnimSlider> (record);
    ApplySlider (record, *slider);
    return slider;
}

ZControlBuilder::Made ZControlBuilder::CreateSlideSwitch (const ZControlDescription& record)
{
    auto slide = MakeAnimated<ZAnimSlideSwitch> (record);
    ApplySlider (record, *slide);
    return slide;
}

ZControlBuilder::Made ZControlBuilder::CreateToggleSwitch (const ZControlDescription& record)
{
    auto toggle = MakeAnimated<ZAnimToggleSwitch> (record);
    ApplyToggle (record, *toggle);
    return toggle;
}

ZControlBuilder::Made ZControlBuilder::CreateRadioButton (const ZControlDescription& record)
{
    auto button = MakeAnimated<ZAnimOnOffButton> (record);
    if (auto* group = FindGroup (editor, record.id))
    {
        group->AddButton (record.buttonIndex, std::move (button));
        return nullptr;
    }
    auto group = std::make_unique<ZMultiButton> (&editor, record.id);
    group->AddButton (record.buttonIndex, std::move (button));
    return group;
}

ZControlBuilder::Made ZControlBuilder::CreateFontText (const ZControlDescription& record)
{
    auto edit = Make<ZAsciiFontTextEdit> (record);
    ApplyHitRect (record, *edit);
    ApplyAsciiFont (record, *edit);
    ApplyWholeBack (record, *edit);
    ApplyTextEdit (record, *edit);
    return edit;
}

ZControlBuilder::Made ZControlBuilder::CreateText (const ZControlDescription& record)
{
    auto edit = Make<ZDrawTextEdit> (record);
    ApplyHitRect (record, *edit);
    ApplyWholeBack (record, *edit);
    ApplyText (record, *edit);
    ApplyTextEdit (record, *edit);
    return edit;
}

ZControlBuilder::Made ZControlBuilder::CreateAnimMenu (const ZControlDescription& record)
{
    return MakeAnimated<ZAnimMatrixMenu> (record);
}

ZControlBuilder::Made ZControlBuilder::CreateTextMenu (const ZControlDescription& record)
{
    auto menu = Make<ZDrawMatrixMenu> (record);
    ApplyHitRect (record, *menu);
    ApplyWholeBack (record, *menu);
    ApplyText (record, *menu);
    return menu;
}

void ZControlBuilder::ApplyHitRect (const ZControlDescription& record, ZPane& pane) const
{
    if (IsSized (record.hitWidth, record.hitHeight))
        pane.SetHitRect (RectOf (record.hitX, record.hitY, record.hitWidth, record.hitHeight));
}

void ZControlBuilder::ApplyImage (const ZControlDescription& record, ZDrawBack& look) const
{
    if (record.imageName != nullptr)
        look.SetBitmapActive (editor.GetBitmap (record.imageName), { record.imageX, record.imageY });
}

void ZControlBuilder::ApplyAnim (const ZControlDescription& record, ZDrawAnim& look) const
{
    if (record.imageName != nullptr)
        look.SetAnimActive (editor.GetBitmap (record.imageName), record.frameCount, record.height,
                            { record.imageX, record.imageY });
}

void ZControlBuilder::ApplyKnob (const ZControlDescription& record, ZDrawKnob& look) const
{
    if (record.imageName != nullptr)
        look.SetBitmapActive (editor.GetBitmap (record.imageName), { record.imageX, record.imageY });
}

void ZControlBuilder::ApplyAsciiFont (const ZControlDescription& record, ZDrawAsciiFont& look) const
{
    if (record.imageName != nullptr)
        look.SetFontActive (editor.GetBitmap (record.imageName), record.charWidth, record.charHeight,
                            AlignmentOf (record), { record.imageX, record.imageY });
}

void ZControlBuilder::ApplyBack (const ZControlDescription& record, ZDrawBack& look) const
{
    if (record.backName != nullptr)
        look.SetBitmapActive (editor.GetBitmap (record.backName), { record.backX, record.backY });
}

void ZControlBuilder::ApplyText (const ZControlDescription& record, ZDrawText& look) const
{
    if (record.textColor.enabled != 0)
        look.SetFontActive (record.textColor.color, AlignmentOf (record), SizeIndexOf (record.charHeight), 0);
}

void ZControlBuilder::ApplyBackColor (const ZControlDescription& record, ZDrawBack& look) const
{
    if (record.backColor.enabled != 0)
        look.SetColorActive (record.backColor.color);
}

void ZControlBuilder::ApplyDial (const ZControlDescription& record, ZDial& dial) const
{
    dial.SetDegreeRange (record.beginDegree, record.endDegree);
    dial.SetCenter (record.centerX, record.centerY);
    dial.SetDirection (record.counterClockwise == 0 ? kClockwise : kCounterclockwise);
}

void ZControlBuilder::ApplySlider (const ZControlDescription& record, ZSlider& slider) const
{
    slider.SetKnobRect ({ 0, 0, record.knobWidth, record.knobHeight });
    slider.SetStyle (StyleOf (record.sliderOrientation));
}

void ZControlBuilder::ApplyToggle (const ZControlDescription& record, ZToggleSwitch& toggle) const
{
    toggle.SetZones (record.zoneStart, record.zoneEnd);
    toggle.SetStyle (StyleOf (record.toggleOrientation));
}

void ZControlBuilder::ApplyTextEdit (const ZControlDescription& record, ZTextEdit& edit) const
{
    edit.SetFlags (record.editMode == 1   ? kDragUpAndDown
                   : record.editMode == 2 ? kEditOnDoubleClick
                   : record.editMode == 3 ? kDragUpAndDown | kEditOnDoubleClick
                                          : 0);
    if (IsSized (record.textWidth, record.textHeight))
        edit.SetTextRect (RectOf (record.textX, record.textY, record.textWidth, record.textHeight));
}

} // namespace tessaly
