#include "anim_rotary_switch.h"
#include "control_board.h"
#include <array>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

struct Board : ControlBoard
{
    ZAnimRotarySwitch rotary{ this, { 100, 100, 160, 160 }, 4 };

    Board (std::int32_t mode, float step)
    {
        Adopt (rotary);
        rotary.SetDragMode (mode);
        rotary.SetStep (step);
    }
};

} // namespace

TEST_CASE ("ZRotarySwitch: a drag sends positions and nothing between them")
{
    Board straight (kDialLinear, 1.0f / 3);
    straight.Press (straight.rotary, { 130, 130 });
    for (std::int32_t y = 129; y > 0; --y)
        straight.Drag (straight.rotary, { 130, y });
    for (std::int32_t y = 1; y < 130; ++y)
        straight.Drag (straight.rotary, { 130, y });
    CHECK (straight.TakeValues () == std::vector<float>{ 0.5f, 1.0f, 0.5f, 0.0f });

    Board jump (kDialJump, 1.0f / 3);
    jump.Press (jump.rotary, { 110, 130 }); // 90 degrees are in the first third, and the turn counts from its value
    for (const ZPoint point : { ZPoint{ 130, 110 }, { 150, 130 }, { 149, 149 }, { 131, 150 } })
        jump.Drag (jump.rotary, point);
    CHECK (jump.TakeValues () == std::vector<float>{ 0.0f, 0.5f, 1.0f });
}

TEST_CASE (
    "ZRotarySwitch: by angle each position has an equal part of the widened sweep, and a press beyond is refused")
{
    Board board (kDialJump, 0.1f);
    board.rotary.SetDegreeRange (90, 270); // widened to 81 to 279
    CHECK_FALSE (board.Press (board.rotary, { 130, 150 }));
    CHECK_FALSE (board.Press (board.rotary, { 110, 139 })); // 65, beyond the half position that is left to the sweep
    CHECK (board.TakeValues ().empty ());
    CHECK (board.Press (board.rotary, { 110, 135 })); // 75
    CHECK (board.TakeValues () == std::vector<float>{ 0.0f });
    CHECK (board.Press (board.rotary, { 130, 110 })); // the middle, where the sixth position begins
    CHECK (board.rotary.GetIndex () == 5);
    CHECK (board.rotary.GetValue () == Approx (5.0 / 9));

    board.Press (board.rotary, { 110, 126 }); // 102 degrees, just in the second of 198 / 10
    CHECK (board.rotary.GetIndex () == 1);
    board.Press (board.rotary, { 150, 126 }); // 259, just short of the last
    CHECK (board.rotary.GetIndex () == 8);

    board.Press (board.rotary, { 130, 110 });
    CHECK_FALSE (board.Press (board.rotary, { 130, 150 }));
    board.rotary.SetOppositeGripEnabled (true);
    CHECK (board.Press (board.rotary, { 130, 150 })); // opposite its pointer
    CHECK (board.rotary.GetIndex () == 5);
}

TEST_CASE ("ZRotarySwitch: a press on a label chooses its position at once, in every mode, and drags on from there")
{
    for (const auto mode : { kDialJump, kDialTurn, kDialLinear })
    {
        Board board (mode, 1.0f / 3);
        const std::array labels{ ZRect{ -30, 0, -10, 10 }, ZRect{ 20, -20, 40, -10 }, ZRect{ 70, 0, 90, 10 } };
        board.rotary.AddRegions (labels);
        board.rotary.AddRegion ({ 0, 70, 60, 80 }, ZLabelRegions::kNone);
        board.rotary.AddRegion ({ 65, 0, 95, 10 }, 0);
        CHECK (board.rotary.FindRegion ({ 175, 105 }) == 2); // the first that holds it
        CHECK (board.rotary.FindRegion ({ 130, 175 }) == 3);
        CHECK (board.rotary.FindRegion ({ 190, 105 }) == 0);
        CHECK (board.rotary.FindRegion ({ 195, 105 }) == ZLabelRegions::kNone);

        CHECK (board.Press (board.rotary, { 175, 105 }));
        CHECK (board.TakeValues () == std::vector<float>{ 1.0f });
        CHECK (board.Press (board.rotary, { 125, 85 }));
        CHECK (board.TakeValues () == std::vector<float>{ 0.5f });
        board.rotary.ClearRegions ();
        CHECK_FALSE (board.Press (board.rotary, { 175, 105 }, 0, kRightButton));
        CHECK (board.TakeValues ().empty ());
    }
}

TEST_CASE ("ZAnimRotarySwitch: shows the frame of its position, whatever the length of the strip")
{
    Board board (kDialLinear, 0.25f);
    board.rotary.SetAnimActive (&board.strip, 40, 1, {});
    board.rotary.SetIndex (2);
    CHECK (board.FrameShown (board.rotary) == 2);
    board.rotary.SetStep (1.0f); // a single position
    CHECK (board.FrameShown (board.rotary) == 0);
    board.Press (board.rotary, { 130, 130 });
    board.Drag (board.rotary, { 130, 0 });
    CHECK (board.TakeValues ().empty ());

    board.rotary.SetStep (1e-30f); // more positions than can be counted
    board.rotary.SetDragMode (kDialJump);
    CHECK (board.Press (board.rotary, { 130, 110 }));
    CHECK (board.TakeValues ().front () == Approx (0.5).epsilon (0.01));
}
