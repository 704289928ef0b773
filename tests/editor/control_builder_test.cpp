#include "control_builder.h"

#include "anim_click_button.h"
#include "anim_dial.h"
#include "anim_matrix_menu.h"
#include "anim_on_off_button.h"
#include "anim_picture.h"
#include "anim_rotary_switch.h"
#include "anim_slide_switch.h"
#include "anim_slider.h"
#include "anim_toggle_switch.h"
#include "ascii_font_text_edit.h"
#include "bitmap_picture.h"
#include "draw_matrix_menu.h"
#include "draw_text_edit.h"
#include "editor_desk.h"
#include "knob_slider.h"
#include "multi_button.h"
#include <doctest/doctest.h>
#include <typeindex>
#include <typeinfo>

using namespace tessaly;

namespace
{

/// An editor of nothing but described controls.
class DescribedEditor final : public ZGuiEditor
{
public:
    DescribedEditor (ZEditorWrapper& surroundings, std::vector<ZControlDescription> table)
        : ZGuiEditor (surroundings)
        , records (std::move (table))
    {
        Open ({});
    }
    ~DescribedEditor () override { Close (); }
    ZPane* First () const { return GetRootView ()->GetPane (0); }
    template <typename Control>
    Control& FirstAs () const
    {
        return dynamic_cast<Control&> (*First ());
    }

protected:
    void CreateControls () override { ZControlBuilder (*this).BuildControls (records); }
    void DestroyControls () override {}
    void OnFocusGained () override {}
    void OnFocusLost () override {}

private:
    std::vector<ZControlDescription> records;
};

ZControlDescription Described (std::int32_t kind)
{
    ZControlDescription record;
    record.kind = kind;
    record.id = 1;
    record.x = 10;
    record.y = 20;
    record.width = 60;
    record.height = 20;
    record.imageName = "strip";
    record.imageX = 5;
    record.frameCount = 4;
    record.charWidth = 6;
    record.charHeight = 12;
    return record;
}

} // namespace

TEST_CASE ("ZControlBuilder: makes each kind, and goes on behind a kind that there is not")
{
    const std::type_info* kinds[]{ &typeid (ZBitmapPicture),  &typeid (ZBitmapPicture),     &typeid (ZAnimPicture),
                                   &typeid (ZClickButton),    &typeid (ZAnimClickButton),   &typeid (ZAnimOnOffButton),
                                   &typeid (ZAnimDial),       &typeid (ZAnimRotarySwitch),  &typeid (ZKnobSlider),
                                   &typeid (ZAnimSlider),     &typeid (ZAnimSlideSwitch),   &typeid (ZAnimToggleSwitch),
                                   &typeid (ZMultiButton),    &typeid (ZAsciiFontTextEdit), &typeid (ZDrawTextEdit),
                                   &typeid (ZAnimMatrixMenu), &typeid (ZDrawMatrixMenu),    &typeid (ZBitmapPicture) };
    EditorDesk desk;
    std::vector<ZControlDescription> table{ Described (18), Described (-1) };
    for (std::int32_t kind = 0; kind < 18; ++kind)
    {
        table.push_back (Described (kind));
        table.back ().id = 100 + kind;
    }
    DescribedEditor editor (desk.wrapper, table);
    REQUIRE (editor.GetRootView ()->GetPaneCount () == 18);
    for (std::int32_t kind = 0; kind < 18; ++kind)
    {
        CAPTURE (kind);
        const auto& pane = *editor.GetRootView ()->GetPane (kind);
        CHECK (std::type_index (typeid (pane)) == std::type_index (*kinds[kind]));
        CHECK (pane.GetId () == 100 + kind);
        CHECK (pane.GetFrame () == (kind == kKindRadioButton ? ZRect{} : ZRect{ 10, 20, 70, 40 }));
    }
    CHECK (desk.wrapper.loaded == std::vector<std::string>{ "strip" });
    desk.Paint (editor);
    CHECK_FALSE (editor.NeedsRedraw ());
}

TEST_CASE ("ZControlBuilder: radio buttons of one id make one group, in one place")
{
    EditorDesk desk;
    desk.wrapper.storage.SetStep (1, 1.0f / 3);
    desk.wrapper.storage.SetNormalized (1, 0.5f);
    std::vector<ZControlDescription> table{ Described (kKindAnimPicture) }; // bears the id, but is no group
    for (std::int32_t index = 0; index < 3; ++index)
    {
        auto record = Described (kKindRadioButton);
        record.x = 100 * index;
        record.buttonIndex = index;
        table.push_back (record);
    }
    DescribedEditor editor (desk.wrapper, table);
    CHECK (editor.GetControls ().GetCount () == 2);
    CHECK (editor.GetRootView ()->GetPaneCount () == 2);
    editor.GetRootView ()->SetFrame ({ 0, 0, 400, 100 });
    CHECK (desk.Press (editor, { 205, 25 }));
    desk.Release (editor, { 205, 25 });
    CHECK (desk.wrapper.storage.GetNormalized (1) == 1.0f);
    CHECK_FALSE (desk.Press (editor, { 90, 25 })); // between two buttons
}

TEST_CASE ("ZControlBuilder: applies what a record says")
{
    EditorDesk desk;
    auto record = Described (kKindDial);
    record.beginDegree = 45;
    record.endDegree = 300;
    record.centerX = 7;
    record.centerY = 8;
    record.counterClockwise = 1;
    record.hitX = 2;
    record.hitY = 3;
    record.hitWidth = 10;
    record.hitHeight = 11;
    {
        DescribedEditor editor (desk.wrapper, { record });
        const auto& dial = editor.FirstAs<ZAnimDial> ();
        CHECK (dial.GetDirection () == 8);
        CHECK (dial.GetBeginDegree () == 45);
        CHECK (dial.GetEndDegree () == 300);
        CHECK (dial.GetCenter () == ZPoint{ 7, 8 });
        CHECK (dial.GetHitRect () == ZRect{ 12, 23, 22, 34 });
        CHECK (dial.ZDrawAnim::GetRecordActive ().frameHeight == 20);
        CHECK (dial.ZDrawAnim::GetRecordInactive ().kind == 0);
        editor.SetDialMode (0);
        CHECK (dial.GetDragMode () == 0);
    }
    record.kind = kKindAnimPicture;
    record.backName = "panel";
    record.backColor = { { 1, 2, 3 }, 1 };
    record.target = kTargetMeter;
    DescribedEditor editor (desk.wrapper, { record });
    const auto calls = desk.Paint (editor);
    CHECK (calls[0] == "SetColor 1,2,3,255"); // instead of the image
    CHECK (calls[2] == "DrawBitmap strip 10,20,70,40 from 5,0");
    CHECK (editor.GetControls ().GetCount () == 0);
    desk.wrapper.meters.SetDirect (1, 0.5f);
    desk.Tick (editor);
    CHECK (editor.FirstAs<ZAnimPicture> ().GetValue () == 0.5f);
}

TEST_CASE ("ZControlBuilder: translates sizes of a font, orientations and numbers of frames")
{
    EditorDesk desk;
    for (const auto& [height, index] : { std::pair{ 9, 4 }, { 10, 3 }, { 12, 2 }, { 14, 1 }, { 17, 1 }, { 18, 0 } })
    {
        auto record = Described (kKindText);
        record.charHeight = height;
        record.textColor = { { 9, 9, 9 }, 1 };
        record.alignment = 1;
        record.textX = 1;
        record.textWidth = 30;
        record.textHeight = 10;
        record.editMode = 2;
        const DescribedEditor editor (desk.wrapper, { record });
        const auto& edit = editor.FirstAs<ZDrawTextEdit> ();
        CHECK (edit.ZDrawText::GetRecordActive ().sizeIndex == index);
        CHECK (edit.ZDrawText::GetRecordActive ().alignment == 18);
        CHECK (edit.GetTextPlace () == ZRect{ 11, 20, 41, 30 });
        CHECK (edit.GetFlags () == 1);
    }
    for (const auto& [orientation, style] : { std::pair{ 0, 5 }, { 1, 9 }, { 2, 6 }, { 3, 10 } })
    {
        auto record = Described (kKindKnobSlider);
        record.sliderOrientation = orientation;
        CHECK (DescribedEditor (desk.wrapper, { record }).FirstAs<ZKnobSlider> ().GetStyle () == style);
        record.kind = kKindToggleSwitch;
        record.toggleOrientation = 3 - orientation;
        CHECK (DescribedEditor (desk.wrapper, { record }).FirstAs<ZAnimToggleSwitch> ().GetStyle () == 15 - style);
    }
    for (const auto& [frames, behaviour] : { std::pair{ 1, 3 }, { 2, 3 }, { 3, 9 }, { 4, 9 }, { 0, 9 } })
    {
        auto record = Described (kKindOnOffButton);
        record.frameCount = frames;
        CHECK (DescribedEditor (desk.wrapper, { record }).FirstAs<ZAnimOnOffButton> ().GetBehaviour () == behaviour);
    }
}
