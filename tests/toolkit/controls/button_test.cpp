#include "anim_on_off_button.h"
#include "click_buttons.h"
#include "multi_button.h"
#include "pane_fixture.h"
#include <array>
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

constexpr ZRect kPlace{ 10, 10, 30, 20 };
constexpr ZPoint kInside{ 15, 15 };
constexpr ZPoint kOutside{ 40, 15 };

const Values kNone, kZero{ 0.0f }, kOne{ 1.0f }, kTwice{ 1.0f, 1.0f };

/// A press, a move off the button, one back and a release on it: what each sends, and the frame that then shows.
struct Row
{
    std::int32_t behaviour;
    bool on; // before
    std::array<Values, 4> sends;
    std::array<int, 4> frames;
};

template <typename Button>
void CheckPresses (std::initializer_list<Row> rows)
{
    for (const auto& row : rows)
    {
        CAPTURE (row.behaviour);
        CAPTURE (row.on);
        ControlFixture<Button> fixture (kPlace);
        fixture.control.SetAnimActive (&fixture.strip, 9, 1, {});
        fixture.control.SetBehaviour (row.behaviour);
        fixture.control.SetBool (row.on);
        CHECK (fixture.Pressed (kInside) == row.sends[0]);
        CHECK (fixture.FrameShown (fixture.control) == row.frames[0]);
        CHECK (fixture.Dragged (kOutside) == row.sends[1]);
        CHECK (fixture.FrameShown (fixture.control) == row.frames[1]);
        CHECK (fixture.Dragged (kInside) == row.sends[2]);
        CHECK (fixture.FrameShown (fixture.control) == row.frames[2]);
        CHECK (fixture.Released (kInside) == row.sends[3]);
        CHECK (fixture.FrameShown (fixture.control) == row.frames[3]);
        fixture.Pressed (kInside);
        CHECK (fixture.Released (kOutside) == kNone);
    }
}

} // namespace

TEST_CASE ("ZClickButton: presses, releases and repeats as its behaviour says, and is down while pressed inside")
{
    CheckPresses<ZAnimClickButton> (
        { { kClickPress, false, { kOne, kNone, kNone, kNone }, { 1, 0, 1, 0 } },
          { kClickRelease, false, { kNone, kNone, kNone, kZero }, { 1, 0, 1, 0 } },
          { kClickPress | kClickRelease, false, { kOne, kNone, kNone, kZero }, { 1, 0, 1, 0 } },
          { kClickRepeat, false, { kOne, kNone, kOne, kNone }, { 1, 0, 1, 0 } },
          { kClickPress | kClickRepeat, false, { kTwice, kNone, kOne, kNone }, { 1, 0, 1, 0 } } });
}

TEST_CASE ("ZClickButton: without repeats a leave ends the press, with them they come one interval apart")
{
    ControlFixture<ZClickButton> fixture (kPlace);
    CHECK (fixture.Press (fixture.control, kInside));
    CHECK_FALSE (fixture.Drag (fixture.control, kOutside));
    fixture.control.SetBehaviour (kClickRepeat);
    CHECK (fixture.Drag (fixture.control, kOutside));
    for (const std::uint32_t start : { 10000u, 0xFFFFFFA0u, 0u }) // the clock may wrap
    {
        fixture.window.time = start;
        fixture.Pressed (kInside);
        fixture.window.time = start + 200;
        CHECK (fixture.Dragged (kInside) == kNone);
        fixture.window.time = start + 201;
        CHECK (fixture.Dragged (kInside) == kOne);
    }
}

TEST_CASE ("ZOnOffButton: switches when its behaviour says, and shows where a press would lead")
{
    // Its frames: off, going on, on, going off
    CheckPresses<ZAnimOnOffButton> (
        { { kOffActsAtPress | kOnActsAtRelease, false, { kOne, kZero, kOne, kNone }, { 1, 0, 1, 2 } },
          { kOffActsAtPress | kOnActsAtRelease, true, { kNone, kNone, kNone, kZero }, { 3, 2, 3, 0 } },
          { kOnActsAtPress, true, { kZero, kOne, kZero, kNone }, { 3, 2, 3, 0 } },
          { kOffActsAtRelease, false, { kNone, kNone, kNone, kOne }, { 1, 0, 1, 2 } },
          { kOffActsAtRelease, true, { kNone, kNone, kNone, kNone }, { 1, 2, 1, 2 } } }); // from on it does nothing
    ControlFixture<ZAnimOnOffButton> fixture (kPlace);
    fixture.control.SetAnimActive (&fixture.strip, 9, 1, {});
    fixture.control.SetActiveFrames (4, 5, 6, 7);
    fixture.control.SetActiveFramePreset (5); // there is none
    CHECK (fixture.FrameShown (fixture.control) == 4);
    fixture.control.SetAnimInactive (&fixture.strip, 9, 1, {});
    fixture.control.SetShownState (kStateGoingOff);
    fixture.control.SetActive (false);
    CHECK (fixture.FrameShown (fixture.control) == 3); // the other look has a table of its own
}

TEST_CASE ("ZMultiButton: one of the group is on, a press selects another or falls back, and all show it")
{
    PaneFixture fixture;
    ZMultiButton group (&fixture, 7);
    group.SetStep (1.0f / 3);
    for (std::int32_t i = 0; i < 3; ++i)
    {
        auto button = std::make_unique<ZAnimOnOffButton> (&fixture, ZRect{ 10 * i, 0, 10 * i + 10, 10 }, -2);
        button->SetAnimActive (&fixture.strip, 4, 1, {});
        group.AddButton (i, std::move (button));
    }
    fixture.Adopt (group);
    ZView root (&fixture, { 0, 0, 100, 100 });
    root.AddPane (&group);
    const auto lit = [&] // the frames of a pass
    {
        root.Paint (fixture.canvas, 0, {});
        std::string frames;
        for (const auto& call : fixture.surface.Take ())
            frames += std::to_string (call.from.y);
        return frames;
    };
    CHECK (lit () == "200");
    CHECK (lit () == ""); // nothing has changed
    group.SetIndex (1);
    CHECK (fixture.Press (group, { 25, 5 }));
    CHECK (lit () == "001");
    CHECK (fixture.Drag (group, { 25, 50 })); // off it: taken back
    CHECK (lit () == "020");
    CHECK (fixture.Drag (group, { 25, 5 }));
    CHECK_FALSE (fixture.Release (group, { 25, 5 }));
    CHECK_FALSE (fixture.Drag (group, { 25, 5 })); // it is over
    CHECK_FALSE (fixture.Release (group, { 25, 5 }));
    CHECK (lit () == "002");
    CHECK (fixture.TakeValues () == Values{ 1.0f, 0.5f, 1.0f });

    group.SetOffIndex (1);
    fixture.Press (group, { 25, 5 });
    fixture.Release (group, { 25, 5 });
    CHECK (lit () == "020"); // a second press falls back to the off index
    CHECK (root.FindPane (fixture.event, fixture.At ({ 15, 5 })) == &group);
    CHECK (root.FindPane (fixture.event, fixture.At ({ 35, 5 })) == nullptr);
    CHECK_FALSE (fixture.Press (group, { 35, 5 }));
    fixture.Press (group, { 5, 5 });
    group.DeleteAllButtons (); // in mid-press
    CHECK_FALSE (fixture.Drag (group, { 5, 5 }));
}
