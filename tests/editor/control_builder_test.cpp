#include "control_builder.h"

#include "anim_dial.h"
#include "anim_on_off_button.h"
#include "anim_toggle_switch.h"
#include "editor_fixture.h"
#include "sliders.h"
#include "text_edits.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

/// An editor of nothing but described controls.
struct DescribedFixture : EditorFixture<>
{
    std::vector<ZControlDescription> records;

    explicit DescribedFixture (std::vector<ZControlDescription> table)
        : records (std::move (table))
    {
        Open ({});
    }
    void CreateControls () override { ZControlBuilder (*this).BuildControls (records); }

    template <typename Control>
    Control& First () const
    {
        return dynamic_cast<Control&> (*GetRootView ()->GetPane (0));
    }
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
    return record;
}

} // namespace

TEST_CASE ("ZControlBuilder: radio buttons of one id make one group, and a kind that there is not makes nothing")
{
    std::vector table{ Described (18), Described (-1), Described (kKindAnimPicture), Described (kKindRadioButton),
                       Described (kKindRadioButton) };
    table.back ().x = 100;
    table.back ().buttonIndex = 1;
    DescribedFixture fixture (table);
    CHECK (fixture.GetControls ().GetCount () == 2); // the picture bears the id, but is no group
    CHECK (fixture.GetRootView ()->GetPaneCount () == 2);
    fixture.GetRootView ()->SetFrame ({ 0, 0, 400, 100 });
    CHECK (fixture.Press ({ 105, 25 }));
    CHECK_FALSE (fixture.Press ({ 90, 25 })); // between the two buttons
}

TEST_CASE ("ZControlBuilder: a meter is no control, shows its strip and has a colour instead of an image behind it")
{
    auto record = Described (kKindAnimPicture);
    record.backName = "panel";
    record.backColor = { { 1, 2, 3 }, 1 };
    record.target = kTargetMeter;
    DescribedFixture fixture ({ record });
    CHECK (fixture.Paint () ==
           Calls{ "SetColor 1,2,3,255", "FillRect 10,20,70,40", "DrawBitmap strip 10,20,70,40 from 5,0" });
    CHECK (fixture.GetControls ().GetCount () == 0);
    fixture.wrapper.meters.SetDirect (1, 1.0f);
    fixture.Tick ();
    CHECK (fixture.Paint ().back () == "DrawBitmap strip 10,20,70,40 from 5,60");
}

TEST_CASE ("ZControlBuilder: translates rectangles, sizes of a font, orientations and numbers of frames")
{
    for (const auto& [height, index] : { std::pair{ 9, 4 }, { 10, 3 }, { 12, 2 }, { 14, 1 }, { 17, 1 }, { 18, 0 } })
    {
        auto record = Described (kKindText);
        record.charHeight = height;
        record.textColor.enabled = 1;
        record.alignment = 1;
        record.textX = 1;
        record.textWidth = 30;
        record.textHeight = 10;
        record.hitY = 3;
        record.hitWidth = 10;
        record.hitHeight = 11;
        record.editMode = 2;
        const DescribedFixture fixture ({ record });
        const auto& edit = fixture.First<ZDrawTextEdit> ();
        CHECK (edit.ZDrawText::GetRecordActive ().sizeIndex == index);
        CHECK (edit.ZDrawText::GetRecordActive ().alignment == (kAlignCenter | kAlignMiddle));
        CHECK (edit.GetTextPlace () == ZRect{ 11, 20, 41, 30 });
        CHECK (edit.GetHitRect () == ZRect{ 10, 23, 20, 34 });
        CHECK (edit.GetFlags () == kEditOnDoubleClick);
    }
    for (const auto& [orientation, style] : { std::pair{ 0, 5 }, { 1, 9 }, { 2, 6 }, { 3, 10 } })
    {
        auto record = Described (kKindKnobSlider);
        record.sliderOrientation = orientation;
        CHECK (DescribedFixture ({ record }).First<ZKnobSlider> ().GetStyle () == style);
        record.kind = kKindToggleSwitch;
        record.toggleOrientation = 3 - orientation;
        CHECK (DescribedFixture ({ record }).First<ZAnimToggleSwitch> ().GetStyle () == 15 - style);
    }
    for (const auto& [frames, behaviour] : { std::pair{ 1, 3 }, { 2, 3 }, { 3, 9 }, { 4, 9 }, { 0, 9 } })
    {
        auto record = Described (kKindOnOffButton);
        record.frameCount = frames;
        CHECK (DescribedFixture ({ record }).First<ZAnimOnOffButton> ().GetBehaviour () == behaviour);
    }
    auto dial = Described (kKindDial);
    dial.centerX = 7;
    dial.centerY = 8;
    CHECK (DescribedFixture ({ dial }).First<ZAnimDial> ().GetCenter () == ZPoint{ 7, 8 });
}
