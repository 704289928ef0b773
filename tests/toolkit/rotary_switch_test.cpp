#include "anim_rotary_switch.h"
#include "control_board.h"
#include <array>
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

struct Board : BoardOf<ZAnimRotarySwitch>
{
    Board (std::int32_t mode, float step)
        : BoardOf ({ 100, 100, 160, 160 })
    {
        control.SetDragMode (mode);
        control.SetStep (step);
    }
};

} // namespace

TEST_CASE ("ZRotarySwitch: a drag sends positions and nothing between them")
{
    Board straight (kDialLinear, 1.0f / 3);
    straight.Press (straight.control, { 130, 130 });
    for (std::int32_t y = 129; y > 0; --y)
        straight.Drag (straight.control, { 130, y });
    for (std::int32_t y = 1; y < 130; ++y)
        straight.Drag (straight.control, { 130, y });
    CHECK (straight.TakeValues () == Values{ 0.5f, 1.0f, 0.5f, 0.0f });

    Board jump (kDialJump, 1.0f / 3);
    jump.Press (jump.control, { 110, 130 }); // 90 degrees are in the first third, and the turn counts from its value
    for (const ZPoint point : { ZPoint{ 130, 110 }, { 150, 130 }, { 149, 149 }, { 131, 150 } })
        jump.Drag (jump.control, point);
    CHECK (jump.TakeValues () == Values{ 0.0f, 0.5f, 1.0f });
}

TEST_CASE ("ZRotarySwitch: by angle each position has an equal part of the widened sweep, a press beyond is refused")
{
    struct Row
    {
        ZPoint point;
        std::int32_t index; // -1: refused
    };
    Board board (kDialJump, 0.1f);
    board.control.SetDegreeRange (90, 270); // widened to 81 to 279, for ten positions
    for (const auto& row :
         { Row{ { 130, 150 }, -1 }, Row{ { 110, 139 }, -1 }, // 65, beyond the half position that is left to the sweep
           Row{ { 110, 135 }, 0 },                           // 75
           Row{ { 110, 126 }, 1 },                           // 102, just in the second
           Row{ { 150, 126 }, 8 },                           // 259, just short of the last
           Row{ { 130, 110 }, 5 } })                         // the middle, where the sixth position begins
    {
        CAPTURE (row.index);
        CHECK (board.Press (board.control, row.point) == (row.index >= 0));
        CHECK (board.TakeValues ().size () == (row.index >= 0 ? 1 : 0));
        CHECK (board.control.GetIndex () == std::max (row.index, 0));
    }
    board.control.SetOppositeGripEnabled (true);
    CHECK (board.Press (board.control, { 130, 150 })); // opposite its pointer
    CHECK (board.control.GetIndex () == 5);
}

TEST_CASE ("ZRotarySwitch: a press on a label chooses its position at once, in every mode, and drags on from there")
{
    for (const auto mode : { kDialJump, kDialTurn, kDialLinear })
    {
        Board board (mode, 1.0f / 3);
        const std::array labels{ ZRect{ -30, 0, -10, 10 }, ZRect{ 20, -20, 40, -10 }, ZRect{ 70, 0, 90, 10 } };
        board.control.AddRegions (labels);
        board.control.AddRegion ({ 0, 70, 60, 80 }, ZLabelRegions::kNone);
        board.control.AddRegion ({ 65, 0, 95, 10 }, 0);
        CHECK (board.control.FindRegion ({ 130, 175 }) == 3);
        CHECK (board.Pressed ({ 175, 105 }) == Values{ 1.0f }); // of two the first that holds it
        CHECK (board.Pressed ({ 190, 105 }) == Values{ 0.0f });
        CHECK (board.Pressed ({ 125, 85 }) == Values{ 0.5f });
        CHECK (board.control.FindRegion ({ 195, 105 }) == ZLabelRegions::kNone);
    }
}

TEST_CASE ("ZAnimRotarySwitch: shows the frame of its position, whatever the length of the strip")
{
    Board board (kDialLinear, 0.25f);
    board.control.SetAnimActive (&board.strip, 40, 1, {});
    board.control.SetIndex (2);
    CHECK (board.FrameShown (board.control) == 2);
    board.control.SetStep (1.0f); // a single position
    CHECK (board.FrameShown (board.control) == 0);
    board.Press (board.control, { 130, 130 });
    CHECK (board.Dragged ({ 130, 0 }).empty ());
    board.control.SetStep (1e-30f); // more positions than can be counted
    board.control.SetDragMode (kDialJump);
    CHECK (board.Pressed ({ 130, 110 }).front () == doctest::Approx (0.5).epsilon (0.01));
}
