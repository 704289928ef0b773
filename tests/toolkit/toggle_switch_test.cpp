#include "anim_toggle_switch.h"
#include "control_board.h"
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

/// A toggle switch 90 long at x 10, so with its zones' borders at x 40 and 70.
struct Board : ControlBoard
{
    ZAnimToggleSwitch toggle{ this, { 10, 10, 100, 40 }, 5 };

    Board ()
    {
        Adopt (toggle);
        toggle.SetStep (0.5f);
        toggle.SetAnimActive (&strip, 3, 1, {});
    }
    Values AfterPress (std::int32_t place)
    {
        Press (toggle, { 10 + place, 20 });
        return TakeValues ();
    }
    Values AfterDrag (std::int32_t place)
    {
        Drag (toggle, { 10 + place, 20 });
        return TakeValues ();
    }
    Values AfterRelease (std::int32_t place)
    {
        Release (toggle, { 10 + place, 20 });
        return TakeValues ();
    }
};

} // namespace

TEST_CASE ("ZToggleSwitch: an end zone sets its position at once, the middle flips at the release")
{
    Board board;
    CHECK (board.AfterPress (29).empty ()); // it is there
    CHECK (board.AfterRelease (29).empty ());
    CHECK (board.AfterPress (61) == Values{ 1.0f });
    board.toggle.SetValue (0.0f); // by another hand, while the pointer rests
    CHECK (board.AfterDrag (61).empty ());
    board.toggle.SetValue (1.0f);
    CHECK (board.AfterRelease (61).empty ());
    CHECK (board.AfterPress (45).empty ());
    CHECK (board.AfterRelease (45) == Values{ 0.0f });
    CHECK (board.AfterPress (45).empty ());
    CHECK (board.AfterDrag (60) == Values{ 1.0f });
    CHECK (board.AfterDrag (59).empty ());
    CHECK (board.AfterDrag (30) == Values{ 0.0f });
    CHECK (board.AfterRelease (30).empty ());

    board.toggle.SetStyle (kHorizontal | kReversed);
    CHECK (board.AfterPress (29) == Values{ 1.0f });
    CHECK (board.AfterDrag (61) == Values{ 0.0f });
    board.toggle.SetZones (80, 85);
    CHECK (board.AfterDrag (62) == Values{ 1.0f });

    ZToggleSwitch upright (nullptr, { 0, 0, 10, 31 }, 0);
    CHECK (upright.GetStyle () == 10);
    CHECK (upright.WantedIndex ({ { 5, 10 } }) == 1); // up to a third from the top is the upper position
    upright.SetValue (1.0f);
    CHECK (upright.WantedIndex ({ { 5, 20 } }) == 0);
}

TEST_CASE ("ZAnimToggleSwitch: shows its position, and the middle while a press is there if the strip has it")
{
    Board board;
    const auto frame = [&board] { return board.FrameShown (board.toggle); };
    CHECK (frame () == 0);
    board.AfterPress (45);
    CHECK (frame () == 1);
    board.AfterDrag (61);
    CHECK (frame () == 2);
    board.AfterDrag (45);
    CHECK (frame () == 1);
    board.AfterRelease (61);
    CHECK (frame () == 2);

    board.toggle.SetActiveFramePreset (0);
    CHECK (frame () == 1);
    board.AfterPress (45);
    CHECK (frame () == 1);
    board.AfterRelease (45);
    CHECK (frame () == 0);
    board.toggle.SetActiveFramePreset (2); // there is none
    board.toggle.SetActiveFrames (7, 1, 2);
    board.toggle.SetAnimActive (&board.strip, 9, 1, {});
    CHECK (frame () == 7);
}
