#include "anim_dial.h"
#include "control_board.h"
#include <cmath>
#include <doctest/doctest.h>
#include <limits>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr ZPoint kBelow{ 130, 150 };
constexpr ZPoint kLeft{ 110, 130 };
constexpr ZPoint kAbove{ 130, 110 };
constexpr ZPoint kRight{ 150, 130 };

/// A dial around (130, 130) with the usual sweep: 90 degrees are 0.3 of it.
struct Board : ControlBoard
{
    ZAnimDial dial{ this, { 100, 100, 160, 160 }, 4 };

    explicit Board (std::int32_t mode, float value = 0.0f)
    {
        Adopt (dial);
        dial.SetDragMode (mode);
        dial.SetValue (value);
    }
    float After (ZPoint point, std::int32_t modifiers = 0)
    {
        Drag (dial, point, modifiers);
        return dial.GetValue ();
    }
};

} // namespace

TEST_CASE ("ZVectorToDegree: absolute degrees grow clockwise from below, in quarters and eighths of a turn exactly")
{
    ZVectorToDegree sweep;
    sweep.SetCenter ({ 5, 5 });
    std::int32_t expected = 0;
    for (const ZPoint point : { ZPoint{ 5, 15 }, { -5, 15 }, { -5, 5 }, { -5, -5 }, { 5, -5 }, { 15, -5 }, { 15, 5 } })
    {
        CHECK (sweep.GetAbsoluteDegree (point) == expected);
        expected += 45;
    }
    CHECK (Wrap360 (-725) == 355);
    CHECK (Wrap180 (180) == -180);
    CHECK (Wrap180 (-181) == 179);
}

TEST_CASE ("ZVectorToDegree: relative degrees begin opposite the middle of the sweep, grow along it and come back")
{
    struct Case
    {
        std::int32_t begin, end, direction, zero, relativeBegin, relativeEnd;
    };
    for (const auto& c : { Case{ 30, 330, kClockwise, 0, 30, 330 }, Case{ 330, 30, kClockwise, 180, 150, 210 },
                           Case{ 330, 30, kCounterclockwise, 0, 30, 330 }, Case{ -150, 150, kClockwise, 180, 30, 330 },
                           Case{ 90, 180, kClockwise, 315, 135, 225 } })
    {
        ZVectorToDegree sweep;
        sweep.SetRange (c.begin, c.end);
        sweep.SetDirection (c.direction);
        CHECK (sweep.GetZeroDegree () == c.zero);
        CHECK (sweep.GetRelativeBegin () == c.relativeBegin);
        CHECK (sweep.GetRelativeEnd () == c.relativeEnd);
        for (std::int32_t degree = 0; degree < 360; degree += 7)
            CHECK (sweep.ToRelative (sweep.FromRelative (degree)) == degree);
    }
}

TEST_CASE ("ZDial: a jump goes to the pointer, with the fine modifier it does not, and a quarter of the turn counts")
{
    Board board (kDialJump, 0.5f);
    CHECK (board.Press (board.dial, kLeft));
    CHECK (board.dial.GetValue () == Approx (0.2));
    CHECK (board.After (kAbove) == Approx (0.5));

    board.TakeValues ();
    CHECK (board.Press (board.dial, kRight, kShift));
    CHECK (board.TakeValues ().empty ());
    CHECK (board.After (kAbove, kShift) == Approx (0.5 - 0.3 / 4));
    CHECK (board.After (kAbove, 0) == Approx (0.5 - 0.3 / 4)); // the pointer rests, so the value does
    CHECK (board.After (kLeft, kShift) == Approx (0.5 - 0.3 / 2));
    CHECK (board.After (kLeft, 0) == Approx (0.5 - 0.3 / 2));
    CHECK (board.After (kAbove, 0) == Approx (0.5)); // and then it is where the pointer is
}

TEST_CASE ("ZDial: a jump into the gap stays at its end, and turning across the gap does not wrap")
{
    for (const bool lower : { true, false })
    {
        Board board (kDialJump, 0.5f);
        board.Press (board.dial, { lower ? 128 : 132, 150 });
        const auto stop = lower ? 0.0f : 1.0f;
        CHECK (board.dial.GetValue () == stop);
        CHECK (board.After ({ lower ? 132 : 128, 150 }) == stop);
        CHECK (board.After (lower ? kRight : kLeft) == stop);
        CHECK (board.After (kBelow) == stop);
        CHECK (board.After (lower ? kLeft : kRight) == Approx (lower ? 0.2 : 0.8)); // all the way back
    }
}

TEST_CASE ("ZDial: an opposite grip turns the dial from the far side without a jump")
{
    Board board (kDialJump, 0.5f);
    board.dial.SetOppositeGripEnabled (true);
    board.Press (board.dial, kBelow);
    CHECK (board.dial.GetValue () == 0.5f);
    CHECK (board.After (kRight) == Approx (0.2)); // its pointer has gone to the left
    board.Release (board.dial, kRight);
    board.Press (board.dial, kBelow); // not opposite the pointer any more
    CHECK (board.dial.GetValue () == 0.0f);

    board.dial.SetGripTolerance (120);
    CHECK (board.dial.GetGripTolerance () == 90);
    board.dial.SetGripTolerance (-5);
    CHECK (board.dial.GetGripTolerance () == 0);
}

TEST_CASE ("ZDial: a turn counts from where it began and remembers how far it went beyond the stop")
{
    Board board (kDialTurn, 0.5f);
    CHECK (board.Press (board.dial, kLeft));
    board.Release (board.dial, kLeft);
    CHECK (board.TakeValues ().empty ());

    board.Press (board.dial, kLeft);
    CHECK (board.After (kAbove) == Approx (0.8));
    CHECK (board.After (kRight) == 1.0f); // 1.1
    CHECK (board.After (kBelow) == 1.0f); // 1.4
    CHECK (board.After (kRight) == 1.0f);
    CHECK (board.After (kAbove) == Approx (0.8));
    CHECK (board.After (kAbove, kShift) == Approx (0.8));
    CHECK (board.After (kLeft, kShift) == Approx (0.8 - 0.3 / 4));

    board.dial.SetDegreeRange (90, 90); // no sweep: nothing to divide by
    board.Press (board.dial, kLeft);
    CHECK (board.After (kAbove) == Approx (0.725));
}

TEST_CASE (
    "ZDial: a straight drag adds up and right, does not jump with the fine modifier, and turns at a stop at once")
{
    Board board (kDialLinear, 0.5f);
    CHECK_FALSE (board.Press (board.dial, { 130, 130 }, 0, kRightButton));
    CHECK (board.Press (board.dial, { 130, 130 }));
    CHECK (board.After ({ 120, 120 }) == 0.5f); // up and left
    CHECK (board.TakeValues ().empty ());
    CHECK (board.After ({ 130, 110 }) == Approx (0.7));
    CHECK (board.After ({ 130, 110 }, kShift) == Approx (0.7));
    CHECK (board.After ({ 130, 90 }, kShift) == Approx (0.75));
    CHECK (board.After ({ 130, 90 }) == Approx (0.75));
    CHECK (board.After ({ 130, -500 }) == 1.0f);
    CHECK (board.After ({ 130, -499 }) == Approx (0.99));
    CHECK (board.After ({ 130, 900 }) == 0.0f);
    CHECK (board.After ({ 131, 900 }) == Approx (0.01));
    board.dial.SetLinearScale (2.0f);
    CHECK (board.After ({ 132, 900 }) == Approx (0.04)); // two pixels from the stop, two steps each
}

TEST_CASE ("ZAnimDial: shows the frame nearest to its value, of the strip of each look")
{
    Board board (kDialLinear);
    CHECK (ZDial (nullptr, { 10, 10, 70, 51 }, 0).GetCenter () == ZPoint{ 30, 20 });
    board.dial.SetAnimActive (&board.strip, 11, 1, {});
    board.dial.SetAnimInactive (&board.strip, 3, 1, {});
    board.dial.SetColorActive ({ 1, 1, 1 });
    const auto nan = std::numeric_limits<float>::quiet_NaN ();
    for (const auto& [value, frame] : { std::pair{ 0.0f, 0 },
                                        { 0.04f, 0 },
                                        { 0.05f, 1 },
                                        { 0.94f, 9 },
                                        { 1.0f, 10 },
                                        { 1e30f, 10 },
                                        { -1e30f, 0 },
                                        { nan, 0 } })
    {
        board.dial.SetValue (value);
        CHECK (board.FrameShown (board.dial) == frame);
    }
    board.dial.SetValue (1.0f);
    CHECK (board.Drawn (board.dial).front () == "SetColor 1,1,1,255");
    board.dial.SetActive (false);
    CHECK (board.FrameShown (board.dial) == 2);
}
