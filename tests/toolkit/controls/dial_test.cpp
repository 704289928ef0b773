#include "dial.h"
#include "pane_fixture.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

constexpr ZPoint kBelow{ 130, 150 };
constexpr ZPoint kLeft{ 110, 130 };
constexpr ZPoint kAbove{ 130, 110 };
constexpr ZPoint kRight{ 150, 130 };

using Fixture = ControlFixture<ZDial>;

constexpr ZRect kPlace{ 100, 100, 160, 160 }; // with the usual sweep: 90 degrees are 0.3 of it

} // namespace

TEST_CASE ("ZVectorToDegree: relative degrees begin opposite the middle of the sweep and grow along it")
{
    struct Row
    {
        std::int32_t begin, end, direction, zero, relativeBegin, relativeEnd;
    };
    for (const auto& row : { Row{ 30, 330, kClockwise, 0, 30, 330 }, Row{ 330, 30, kClockwise, 180, 150, 210 },
                             Row{ 330, 30, kCounterclockwise, 0, 30, 330 }, Row{ -150, 150, kClockwise, 180, 30, 330 },
                             Row{ 90, 180, kClockwise, 315, 135, 225 } })
    {
        ZVectorToDegree sweep;
        sweep.SetRange (row.begin, row.end);
        sweep.SetDirection (row.direction);
        CHECK (sweep.GetZeroDegree () == row.zero);
        CHECK (sweep.GetRelativeBegin () == row.relativeBegin);
        CHECK (sweep.GetRelativeEnd () == row.relativeEnd);
        CHECK (sweep.FromRelative (row.relativeEnd) == Wrap360 (row.end));
    }
}

TEST_CASE ("ZDial: a jump goes to the pointer, with the fine modifier it does not, and a quarter of the turn counts")
{
    Fixture fixture (kPlace, kDialJump, 0.5f);
    fixture.Pressed (kLeft);
    fixture.CheckDrag ({ { kLeft, 0.2 }, { kAbove, 0.5 } });
    CHECK (fixture.Pressed (kRight, kShift).empty ());
    fixture.CheckDrag ({ { kAbove, 0.5 - 0.3 / 4, kShift },
                         { kAbove, 0.5 - 0.3 / 4 }, // the pointer rests, so the value does
                         { kLeft, 0.5 - 0.3 / 2, kShift },
                         { kLeft, 0.5 - 0.3 / 2 },
                         { kAbove, 0.5 } }); // and then it is where the pointer is
}

TEST_CASE ("ZDial: a jump into the gap stays at its end, and turning across the gap does not wrap")
{
    Fixture fixture (kPlace, kDialJump, 0.5f);
    fixture.Pressed ({ 128, 150 });
    fixture.CheckDrag ({ { { 132, 150 }, 0.0 }, { kRight, 0.0 }, { kBelow, 0.0 }, { kLeft, 0.2 } }); // all the way back
    fixture.Pressed ({ 132, 150 });
    fixture.CheckDrag ({ { { 128, 150 }, 1.0 }, { kLeft, 1.0 }, { kBelow, 1.0 }, { kRight, 0.8 } });
}

TEST_CASE ("ZDial: an opposite grip turns the dial from the far side without a jump")
{
    Fixture fixture (kPlace, kDialJump, 0.5f);
    fixture.control.SetOppositeGripEnabled (true);
    fixture.Pressed (kBelow);
    fixture.CheckDrag ({ { kBelow, 0.5 }, { kRight, 0.2 } }); // its pointer has gone to the left
    fixture.Pressed (kBelow);                                 // not opposite the pointer any more
    CHECK (fixture.control.GetValue () == 0.0f);
}

TEST_CASE ("ZDial: a turn counts from where it began and remembers how far it went beyond the stop")
{
    Fixture fixture (kPlace, kDialTurn, 0.5f);
    CHECK (fixture.Pressed (kLeft).empty ());
    fixture.CheckDrag ({ { kAbove, 0.8 },
                         { kRight, 1.0 }, // 1.1
                         { kBelow, 1.0 }, // 1.4
                         { kRight, 1.0 },
                         { kAbove, 0.8 },
                         { kLeft, 0.8 - 0.3 / 4, kShift } });
    fixture.control.SetDegreeRange (90, 90); // no sweep: nothing to divide by
    fixture.CheckDrag ({ { kAbove, 0.8 - 0.3 / 4 } });
}

TEST_CASE ("ZDial: a straight drag adds up and right, does not jump with the fine modifier, and turns at a stop")
{
    Fixture fixture (kPlace, kDialLinear, 0.5f);
    CHECK_FALSE (fixture.Press (fixture.control, { 130, 130 }, 0, kRightButton));
    CHECK (fixture.Press (fixture.control, { 130, 130 }));
    fixture.CheckDrag ({ { { 120, 120 }, 0.5 }, // up and left
                         { { 130, 110 }, 0.7 },
                         { { 130, 90 }, 0.75, kShift },
                         { { 130, 90 }, 0.75 },
                         { { 130, -500 }, 1.0 },
                         { { 130, -499 }, 0.99 },
                         { { 130, 900 }, 0.0 },
                         { { 131, 900 }, 0.01 } });
    fixture.control.SetLinearScale (2.0f);
    fixture.CheckDrag ({ { { 132, 900 }, 0.04 } }); // two pixels from the stop, two steps each
}
