#include "anim_toggle_switch.h"
#include "control_board.h"
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

/// A toggle switch 90 long at x 10, so with its zones' borders at x 40 and 70.
struct Board : BoardOf<ZAnimToggleSwitch>
{
    Board ()
        : BoardOf ({ 10, 10, 100, 40 })
    {
        control.SetStep (0.5f);
        control.SetAnimActive (&strip, 9, 1, {});
    }
};

const Values kNothing, kLow{ 0.0f }, kHigh{ 1.0f };

} // namespace

TEST_CASE ("ZToggleSwitch: an end zone sets its position at once, the middle flips at the release")
{
    Board board;
    CHECK (board.Pressed ({ 39, 20 }) == kNothing); // it is there
    CHECK (board.Pressed ({ 71, 20 }) == kHigh);
    board.control.SetValue (0.0f); // by another hand, while the pointer rests
    CHECK (board.Dragged ({ 71, 20 }) == kNothing);
    board.control.SetValue (1.0f);
    CHECK (board.Released ({ 71, 20 }) == kNothing);
    CHECK (board.Pressed ({ 55, 20 }) == kNothing);
    CHECK (board.Released ({ 55, 20 }) == kLow);
    CHECK (board.Pressed ({ 55, 20 }) == kNothing);
    CHECK (board.Dragged ({ 70, 20 }) == kHigh);
    CHECK (board.Dragged ({ 69, 20 }) == kNothing);
    CHECK (board.Dragged ({ 40, 20 }) == kLow);
    CHECK (board.Released ({ 40, 20 }) == kNothing);

    board.control.SetStyle (kHorizontal | kReversed);
    CHECK (board.Pressed ({ 39, 20 }) == kHigh);
    CHECK (board.Dragged ({ 71, 20 }) == kLow);
    board.control.SetZones (80, 85);
    CHECK (board.Dragged ({ 72, 20 }) == kHigh);

    ZToggleSwitch upright (nullptr, { 0, 0, 10, 31 }, 0);
    CHECK (upright.WantedIndex ({ { 5, 10 } }) == 1); // up to a third from the top is the upper position
    upright.SetValue (1.0f);
    CHECK (upright.WantedIndex ({ { 5, 20 } }) == 0);
}

TEST_CASE ("ZAnimToggleSwitch: shows its position, and the middle while a press is there if the strip has it")
{
    Board board;
    auto& toggle = board.control;
    const auto frame = [&board, &toggle] { return board.FrameShown (toggle); };
    CHECK (frame () == 0);
    board.Pressed ({ 55, 20 });
    CHECK (frame () == 1);
    board.Dragged ({ 71, 20 });
    CHECK (frame () == 2);
    board.Dragged ({ 55, 20 });
    CHECK (frame () == 1);
    board.Released ({ 71, 20 });
    CHECK (frame () == 2);
    toggle.SetActiveFramePreset (0);
    board.Pressed ({ 55, 20 });
    CHECK (frame () == 1);
    board.Released ({ 55, 20 });
    CHECK (frame () == 0);
}
