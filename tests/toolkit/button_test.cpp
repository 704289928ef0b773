#include "anim_click_button.h"
#include "anim_on_off_button.h"
#include "control_board.h"
#include "multi_button.h"
#include "value_index.h"
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

constexpr ZRect kPlace{ 10, 10, 30, 20 };
constexpr ZPoint kInside{ 15, 15 };
constexpr ZPoint kOutside{ 40, 15 };

template <typename Button>
struct Board : ControlBoard
{
    Button button{ this, kPlace, 3 };

    Board () { Adopt (button); }
    Values AfterPress (ZPoint point)
    {
        Press (button, point);
        return TakeValues ();
    }
    Values AfterDrag (ZPoint point)
    {
        Drag (button, point);
        return TakeValues ();
    }
    Values AfterRelease (ZPoint point)
    {
        Release (button, point);
        return TakeValues ();
    }
};

/// A radio group of three on/off buttons beside each other, at x 0, 10 and 20.
struct Radio : ControlBoard
{
    ZMultiButton group{ this, 7 };
    ZAnimOnOffButton* buttons[3]{};

    Radio ()
    {
        group.SetStep (1.0f / 3);
        for (std::int32_t i = 0; i < 3; ++i)
        {
            auto button = std::make_unique<ZAnimOnOffButton> (this, ZRect{ 10 * i, 0, 10 * i + 10, 10 }, -2);
            button->SetAnimActive (&strip, 4, 1, {});
            buttons[i] = button.get ();
            group.AddButton (i, std::move (button));
        }
        Adopt (group);
    }
    std::string Lit () const
    {
        std::string states;
        for (const auto* button : buttons)
            states += button->GetBool () ? '1' : '0';
        return states;
    }
};

} // namespace

TEST_CASE ("ZClickButton: presses, releases and repeats as its behaviour says")
{
    Board<ZClickButton> plain;
    CHECK (plain.Press (plain.button, kInside));
    CHECK (plain.Drag (plain.button, { 16, 15 }));
    CHECK_FALSE (plain.Drag (plain.button, kOutside));
    CHECK (plain.AfterRelease (kInside) == Values{ 1.0f });

    Board<ZClickButton> both;
    both.button.SetBehaviour (kClickPress | kClickRelease);
    CHECK (both.AfterPress (kInside) == Values{ 1.0f });
    CHECK (both.Drag (both.button, kOutside)); // keeps the capture
    CHECK (both.AfterRelease (kOutside).empty ());
    both.AfterPress (kInside);
    CHECK (both.AfterRelease (kInside) == Values{ 0.0f });
}

TEST_CASE ("ZClickButton: repeats come one interval apart, anew after a leave, also across a wrap of the clock")
{
    for (const std::uint32_t start : { 10000u, 0xFFFFFFA0u, 0u })
    {
        Board<ZClickButton> board;
        board.button.SetBehaviour (kClickRepeat);
        board.window.time = start;
        CHECK (board.AfterPress (kInside) == Values{ 1.0f });
        board.window.time = start + 150;
        CHECK (board.AfterDrag (kInside).empty ());
        board.window.time = start + 200;
        CHECK (board.AfterDrag (kInside).empty ());
        board.window.time = start + 201;
        CHECK (board.AfterDrag (kInside) == Values{ 1.0f });
        CHECK (board.Drag (board.button, kOutside));
        CHECK (board.AfterDrag (kInside) == Values{ 1.0f });
    }
    Board<ZClickButton> twice;
    twice.button.SetBehaviour (kClickPress | kClickRepeat);
    CHECK (twice.AfterPress (kInside) == Values{ 1.0f, 1.0f });
}

TEST_CASE ("ZOnOffButton: takes a pending change back off the button, and switches when its behaviour says")
{
    struct Case
    {
        std::int32_t behaviour;
        bool on;
        Values press, away, back, release;
    };
    const Values none, zero{ 0.0f }, one{ 1.0f };
    for (const auto& c : { Case{ 9, false, one, zero, one, none }, Case{ 9, true, none, none, none, zero },
                           Case{ 3, true, zero, one, zero, none }, Case{ 4, false, none, none, none, one },
                           Case{ 4, true, none, none, none, none }, Case{ 0, false, none, none, none, none } })
    {
        CAPTURE (c.behaviour);
        CAPTURE (c.on);
        Board<ZOnOffButton> board;
        board.button.SetBehaviour (c.behaviour);
        board.button.SetBool (c.on);
        CHECK (board.AfterPress (kInside) == c.press);
        CHECK (board.AfterDrag (kOutside) == c.away);
        CHECK (board.AfterDrag (kInside) == c.back);
        CHECK (board.AfterRelease (kInside) == c.release);
    }
    Board<ZOnOffButton> lit;
    lit.button.SetBool (true);
    lit.AfterPress (kInside);
    CHECK (lit.AfterRelease (kOutside).empty ());
}

TEST_CASE ("ZAnimClickButton: is down while pressed inside, with the frames of each look")
{
    Board<ZAnimClickButton> board;
    board.button.SetBehaviour (kClickRelease);
    board.button.SetAnimActive (&board.strip, 9, 1, {});
    board.button.SetAnimInactive (&board.strip, 9, 1, {});
    board.button.SetActiveFrames (4, 5);
    board.button.SetActiveFramePreset (3); // there is none
    board.button.SetActiveFramePreset (-1);
    CHECK (board.FrameShown (board.button) == 4);
    board.AfterPress (kInside);
    CHECK (board.button.IsDirty ());
    CHECK (board.FrameShown (board.button) == 5);
    board.AfterDrag (kInside);
    CHECK_FALSE (board.button.IsDirty ());
    board.button.SetActive (false);
    CHECK (board.FrameShown (board.button) == 1);
    board.button.SetInactiveFramePreset (1);
    CHECK (board.FrameShown (board.button) == 0);
    board.button.SetActive (true);
    board.AfterDrag (kOutside);
    CHECK (board.FrameShown (board.button) == 4);
    board.AfterDrag (kInside);
    CHECK (board.FrameShown (board.button) == 5);
    board.AfterRelease (kInside);
    CHECK (board.FrameShown (board.button) == 4);
}

TEST_CASE ("ZAnimOnOffButton: shows where a press would lead, and by its value without one")
{
    Board<ZAnimOnOffButton> board;
    auto& button = board.button;
    button.SetAnimActive (&board.strip, 9, 1, {});
    const auto frame = [&board] { return board.FrameShown (board.button); };
    CHECK (frame () == kStateOff);
    board.AfterPress (kInside);
    CHECK (frame () == kStateGoingOn);
    button.SetShownState (kStateOn); // not during a press
    CHECK (button.GetShownState () == kStateGoingOn);
    board.AfterDrag (kOutside);
    CHECK (frame () == kStateOff);
    board.AfterDrag (kInside);
    board.AfterRelease (kInside);
    CHECK (frame () == kStateOn);
    board.AfterPress (kInside);
    CHECK (frame () == kStateGoingOff);
    board.AfterRelease (kOutside);
    CHECK (frame () == kStateOn);

    button.SetBehaviour (kOffActsAtPress); // from on it does nothing
    board.AfterPress (kInside);
    CHECK (frame () == kStateGoingOn);
    board.AfterRelease (kInside);

    button.SetShownState (kStateGoingOff);
    CHECK (frame () == 3);
    button.SetActiveFramePreset (3);
    CHECK (frame () == 1);
    for (const auto state : { kStateOff, kStateGoingOn, kStateOn, kStateGoingOff, kStateByValue })
    {
        button.SetActiveFramePreset (1);
        button.SetShownState (state);
        CHECK (frame () == 0);
    }
}

TEST_CASE ("ZMultiButton: one of the group is on, and a press selects another or falls back")
{
    Radio radio;
    CHECK (radio.Lit () == "100");
    radio.group.SetIndex (1);
    CHECK (radio.Press (radio.group, { 25, 5 }));
    CHECK (radio.Lit () == "001");
    CHECK (radio.Drag (radio.group, { 25, 50 })); // off it: taken back
    CHECK (radio.Lit () == "010");
    CHECK (radio.Drag (radio.group, { 25, 5 }));
    CHECK_FALSE (radio.Release (radio.group, { 25, 5 }));
    CHECK (radio.Lit () == "001");
    CHECK (radio.TakeValues () == Values{ 1.0f, 0.5f, 1.0f });

    radio.Press (radio.group, { 25, 5 });
    CHECK (radio.Lit () == "001");
    radio.Release (radio.group, { 25, 5 });
    CHECK (radio.Lit () == "100"); // a second press falls back to the off index
    radio.group.SetOffIndex (1);
    radio.Press (radio.group, { 5, 5 });
    radio.Release (radio.group, { 5, 5 });
    CHECK (radio.Lit () == "010");

    radio.TakeValues ();
    radio.buttons[2]->BroadcastValue (-2, 1.0f); // without a press
    CHECK (radio.TakeValues ().empty ());
    CHECK_FALSE (radio.Drag (radio.group, { 5, 5 }));
    CHECK_FALSE (radio.Press (radio.group, { 35, 5 }));
    radio.group.SetValue (1.0f);
    CHECK (radio.Lit () == "001");
}

TEST_CASE ("ZMultiButton: is hit and drawn through its buttons, and is dirty with them")
{
    Radio radio;
    ZView root (&radio, { 0, 0, 100, 100 });
    root.AddPane (&radio.group);
    ZEvent event (radio.window);
    CHECK (root.FindPane (event, radio.At ({ 15, 5 })) == &radio.group);
    CHECK (root.FindPane (event, radio.At ({ 35, 5 })) == nullptr);
    root.Paint (radio.canvas, 0, {});
    CHECK (radio.surface.Take () == std::vector<std::string>{ "DrawBitmap strip 0,0,10,10 from 0,2",
                                                              "DrawBitmap strip 10,0,20,10 from 0,0",
                                                              "DrawBitmap strip 20,0,30,10 from 0,0" });
    root.Paint (radio.canvas, 0, {});
    CHECK (radio.surface.Take ().empty ());
    radio.buttons[1]->SetShownState (kStateGoingOn);
    CHECK (radio.group.IsDirty ());
    root.Paint (radio.canvas, 0, {});
    CHECK (radio.surface.Take ().size () == 3);

    radio.buttons[2]->SetFrame ({ 10, 0, 30, 10 }); // now above the second
    radio.Press (radio.group, { 15, 5 });
    CHECK (radio.Lit () == "001");
    radio.group.DeleteAllButtons (); // in mid-press
    CHECK_FALSE (radio.Drag (radio.group, { 15, 5 }));
    CHECK (radio.group.AddButton (0, nullptr) == nullptr);
}
