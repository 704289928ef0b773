#include "anim_toggle_switch.h"
#include "pane_fixture.h"
#include "switches.h"
#include <algorithm>
#include <array>
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

using Values = std::vector<float>;

const Values kNone, kLow{ 0.0f }, kHigh{ 1.0f };

using Rotary = ControlFixture<ZAnimRotarySwitch>;

constexpr ZRect kPlace{ 100, 100, 160, 160 }; // of a rotary switch

} // namespace

TEST_CASE ("ZRotarySwitch: by angle each position has an equal part of the widened sweep, a press beyond is refused")
{
    struct Row
    {
        ZPoint point;
        std::int32_t index; // -1: refused
    };
    Rotary fixture (kPlace, kDialJump, 0.0f);
    fixture.control.SetStep (0.1f);
    fixture.control.SetDegreeRange (90, 270); // widened to 81 to 279, for ten positions
    for (const auto& row :
         { Row{ { 130, 150 }, -1 }, Row{ { 110, 139 }, -1 }, // 65, beyond the half position that is left to the sweep
           Row{ { 110, 135 }, 0 },                           // 75
           Row{ { 110, 126 }, 1 },                           // 102, just in the second
           Row{ { 150, 126 }, 8 },                           // 259, just short of the last
           Row{ { 130, 110 }, 5 } })                         // the middle, where the sixth position begins
    {
        CAPTURE (row.index);
        CHECK (fixture.Press (fixture.control, row.point) == (row.index >= 0));
        CHECK (fixture.control.GetIndex () == std::max (row.index, 0));
    }
    fixture.control.SetOppositeGripEnabled (true);
    CHECK (fixture.Press (fixture.control, { 130, 150 })); // opposite its pointer
    CHECK (fixture.control.GetIndex () == 5);
    fixture.control.AddRegion ({ -30, 0, -10, 10 }, 3); // a label, left of the switch
    CHECK (fixture.Press (fixture.control, { 75, 105 }));
    CHECK (fixture.control.GetIndex () == 3);
}

TEST_CASE ("ZSlideSwitch: rests on positions, each with an equal part of the whole track, and takes presses on labels")
{
    ControlFixture<ZAnimSlideSwitch> fixture ({ 0, 0, 90, 10 });
    auto& slide = fixture.control;
    slide.SetStep (1.0f / 3);
    slide.SetDragMode (kSliderThumb); // jumps nevertheless
    fixture.Press (slide, { 45, 5 });
    for (const std::int32_t x : { 50, 59, 61, 89, 500, 31, 29, -7 })
        fixture.Drag (slide, { x, 5 });
    CHECK (fixture.TakeValues () == Values{ 0.5f, 1.0f, 0.5f, 0.0f });
    const std::array labels{ ZRect{ 0, 10, 30, 20 }, ZRect{ 30, 10, 60, 20 }, ZRect{ 60, 10, 90, 20 } };
    slide.AddRegions (labels);
    CHECK (fixture.Press (slide, { 70, 15 }));
    CHECK (slide.GetIndex () == 2);
}

TEST_CASE ("ZToggleSwitch: an end zone sets its position at once, the middle flips at the release")
{
    ControlFixture<ZAnimToggleSwitch> fixture ({ 10, 10, 100, 40 }); // its zones' borders are at x 40 and 70
    const auto frame = [&fixture] { return fixture.FrameShown (fixture.control); };
    fixture.control.SetStep (0.5f);
    fixture.control.SetAnimActive (&fixture.strip, 9, 1, {});
    CHECK (fixture.Pressed ({ 39, 20 }) == kNone); // it is there
    CHECK (fixture.Pressed ({ 71, 20 }) == kHigh);
    fixture.control.SetValue (0.0f); // by another hand, while the pointer rests
    CHECK (fixture.Dragged ({ 71, 20 }) == kNone);
    fixture.control.SetValue (1.0f);
    CHECK (fixture.Released ({ 71, 20 }) == kNone);
    CHECK (fixture.Pressed ({ 55, 20 }) == kNone);
    CHECK (frame () == 1); // of low, middle and high
    CHECK (fixture.Released ({ 55, 20 }) == kLow);
    CHECK (frame () == 0);
    CHECK (fixture.Pressed ({ 55, 20 }) == kNone);
    CHECK (fixture.Dragged ({ 70, 20 }) == kHigh);
    CHECK (frame () == 2);
    CHECK (fixture.Dragged ({ 69, 20 }) == kNone);
    CHECK (frame () == 1);
    fixture.control.SetActiveFramePreset (0); // without a middle
    CHECK (frame () == 1);
    CHECK (fixture.Dragged ({ 40, 20 }) == kLow);
    CHECK (fixture.Released ({ 40, 20 }) == kNone);
    CHECK (frame () == 0);

    fixture.control.SetStyle (kHorizontal | kReversed);
    CHECK (fixture.Pressed ({ 39, 20 }) == kHigh);
    CHECK (fixture.Dragged ({ 71, 20 }) == kLow);

    ZToggleSwitch upright (nullptr, { 0, 0, 10, 31 }, 0);
    CHECK (upright.WantedIndex ({ { 5, 10 } }) == 1); // up to a third from the top is the upper position
}
