#include "anim_slide_switch.h"
#include "control_board.h"
#include "knob_slider.h"
#include <array>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;
using Values = std::vector<float>;

namespace
{

/// A slider 100 long with a knob of 10: its travel is 90 from x 55, where its knob's centre is at value 0.
struct Board : ControlBoard
{
    ZKnobSlider slider{ this, { 50, 50, 150, 60 }, 6 };

    explicit Board (std::int32_t mode, float value = 0.0f)
    {
        Adopt (slider);
        slider.SetDragMode (mode);
        slider.SetValue (value);
    }
    float After (std::int32_t x, std::int32_t modifiers = 0)
    {
        Drag (slider, { x, 55 }, modifiers);
        return slider.GetValue ();
    }
};

} // namespace

TEST_CASE ("ZSlider: the knob stands at its value, from the left or from the bottom by the longer side of the frame")
{
    ZSlider across (nullptr, { 50, 50, 150, 60 }, 0);
    CHECK (across.GetStyle () == 5);
    CHECK (across.GetTravel () == 90);
    across.SetValue (0.5f);
    CHECK (across.GetKnobRect () == ZRect{ 95, 50, 105, 60 });
    across.SetStyle (kHorizontal | kReversed);
    across.SetValue (0.9f);
    CHECK (across.GetKnobRect () == ZRect{ 59, 50, 69, 60 });
    across.SetValue (-3e30f); // whatever its value, the knob stays in the track
    CHECK (across.GetKnobRect () == ZRect{ 140, 50, 150, 60 });

    ZSlider upright (nullptr, { 50, 50, 60, 150 }, 0);
    CHECK (upright.GetStyle () == 10);
    upright.SetValue (1.0f);
    CHECK (upright.GetKnobRect () == ZRect{ 50, 50, 60, 60 });
    upright.SetKnobRect ({ 1, -3, 9, 17 });
    upright.SetValue (0.0f);
    CHECK (upright.GetKnobRect () == ZRect{ 51, 127, 59, 147 });
}

TEST_CASE ("ZSlider: a jump centres the knob on the pointer and follows it, a fine drag ends where the pointer is")
{
    Board board (kSliderJump);
    CHECK (board.Press (board.slider, { 100, 55 }));
    CHECK (board.TakeValues () == Values{ 0.5f });
    CHECK (board.After (109) == Approx (0.6));
    CHECK (board.After (500) == 1.0f);
    CHECK (board.After (136) == Approx (0.9));
    board.Release (board.slider, { 136, 55 });

    board.TakeValues ();
    CHECK (board.Press (board.slider, { 64, 55 }, kShift));
    CHECK (board.TakeValues ().empty ());
    CHECK (board.After (28, kShift) == Approx (0.8));  // 0.9 less a quarter of 36 / 90
    CHECK (board.After (73) == Approx (0.2));          // without shift: the pointer's place
    CHECK (board.After (109, kShift) == Approx (0.3)); // and finely on from there
}

TEST_CASE ("ZSlider: by the knob only, a press on the track is refused")
{
    Board board (kSliderKnob, 0.5f);
    CHECK_FALSE (board.Press (board.slider, { 60, 55 }));
    CHECK (board.Press (board.slider, { 96, 55 }));
    CHECK (board.TakeValues ().empty ());
    CHECK (board.After (105) == Approx (0.6));
    board.slider.SetStyle (kHorizontal | kReversed);
    CHECK (board.Press (board.slider, { 92, 55 }));
    CHECK (board.After (101) == Approx (0.5));
    CHECK_FALSE (board.Press (board.slider, { 100, 55 }, 0, kRightButton));
}

TEST_CASE (
    "ZSlider: in steps, one comes at the press, further ones after a while, and none once the pointer is reached")
{
    Board board (kSliderPage);
    board.slider.SetStep (0.1f);
    board.window.time = 0xFFFFFF00u; // wraps on the way
    const auto at = [&board] (std::uint32_t milliseconds, std::int32_t modifiers = 0)
    {
        board.window.time = 0xFFFFFF00u + milliseconds;
        return board.After (85, modifiers);
    };
    CHECK (board.Press (board.slider, { 85, 55 })); // at a third
    CHECK (board.slider.GetValue () == Approx (0.1));
    CHECK (at (500) == Approx (0.1));
    CHECK (at (501) == Approx (0.2));
    CHECK (at (531, kShift) == Approx (0.2));
    CHECK (at (532, kShift) == Approx (0.3));
    CHECK (at (652, kShift) == Approx (0.3)); // 120 apart
    CHECK (at (653) == Approx (0.4));
    CHECK (at (700) == Approx (0.4)); // passed
    board.window.time += 1000;
    CHECK (board.After (145) == Approx (0.4)); // for good
    board.Release (board.slider, { 145, 55 });

    board.Press (board.slider, { 60, 55 });
    CHECK (board.slider.GetValue () == Approx (0.3)); // downwards
    board.Release (board.slider, { 60, 55 });
    board.Press (board.slider, { 82, 55 }); // on the knob
    CHECK (board.After (91) == Approx (0.4));
}

TEST_CASE ("ZSlider: an endless drag holds the hidden cursor where it was pressed and shows it again, come what may")
{
    Board board (kSliderEndless, 0.5f);
    CHECK (board.Press (board.slider, { 70, 55 }));
    CHECK (board.window.cursorShown == 0);
    CHECK (board.After (79) == Approx (0.6));
    CHECK (board.window.pointer == ZPoint{ 70, 55 });
    CHECK (board.After (79) == Approx (0.7));
    CHECK (board.After (106, kShift) == Approx (0.8));
    CHECK (board.After (200, 0) == 1.0f);
    CHECK (board.After (200, 0) == 1.0f);
    CHECK (board.After (61) == Approx (0.9)); // turns at the stop at once
    board.Release (board.slider, { 61, 55 });
    CHECK (board.window.pointer == ZPoint{ 70, 55 });
    CHECK (board.window.cursorShown == 1);

    board.Press (board.slider, { 70, 55 });
    board.Press (board.slider, { 70, 55 }); // again without a release
    CHECK (board.window.cursorShown == 0);
    board.slider.SetMouseEnabled (false);
    CHECK_FALSE (board.Drag (board.slider, { 80, 55 }));
    CHECK (board.window.cursorShown == 1);

    board.slider.SetMouseEnabled (true);
    board.slider.SetStyle (kHorizontal | kReversed); // does not turn at the stop
    board.slider.SetValue (0.5f);
    board.Press (board.slider, { 70, 55 });
    CHECK (board.After (160) == 0.0f);
    CHECK (board.After (61) == 0.0f);
}

TEST_CASE ("ZSlider: without travel nothing moves")
{
    for (const auto mode : { kSliderEndless, kSliderJump, kSliderKnob, kSliderPage })
        for (const std::int32_t knob : { 100, 300 })
        {
            Board board (mode, 0.5f);
            board.slider.SetKnobRect ({ 0, 0, knob, 10 });
            board.Press (board.slider, { 70, 55 });
            CHECK (board.After (90) == 0.5f);
            CHECK (board.slider.GetKnobRect ().left == 50);
        }
}

TEST_CASE ("ZKnobSlider: draws the background, and over it the knob in its place")
{
    Board board (kSliderJump, 0.5f);
    board.slider.ZDrawBack::SetBitmapActive (&board.strip, { 7, 8 });
    board.slider.ZDrawKnob::SetBitmapActive (&board.strip, { 1, 2 });
    board.slider.ZDrawKnob::SetBitmapInactive (&board.strip, { 3, 4 });
    CHECK (board.Drawn (board.slider) == std::vector<std::string>{ "DrawBitmap strip 50,50,150,60 from 7,8",
                                                                   "DrawBitmap strip 95,50,105,60 from 1,2" });
    board.slider.SetActive (false);
    CHECK (board.Drawn (board.slider) == std::vector<std::string>{ "DrawBitmap strip 95,50,105,60 from 3,4" });
}

TEST_CASE ("ZSlideSwitch: rests on positions, each with an equal part of the whole track, and takes presses on labels")
{
    ControlBoard board;
    ZAnimSlideSwitch slide (&board, { 0, 0, 90, 10 }, 2);
    board.Adopt (slide);
    slide.SetStep (1.0f / 3);
    slide.SetAnimActive (&board.strip, 3, 1, {});
    slide.SetDragMode (kSliderKnob);
    CHECK (slide.GetDragMode () == kSliderJump);
    CHECK (slide.GetTravel () == 90);

    CHECK (board.Press (slide, { 45, 5 }));
    for (const std::int32_t x : { 50, 59, 61, 89, 500, 31, 29, -7 })
        board.Drag (slide, { x, 5 });
    CHECK (board.TakeValues () == Values{ 0.5f, 1.0f, 0.5f, 0.0f });

    const std::array labels{ ZRect{ 0, 10, 30, 20 }, ZRect{ 30, 10, 60, 20 }, ZRect{ 60, 10, 90, 20 } };
    slide.AddRegions (labels);
    CHECK (board.Press (slide, { 70, 15 }));
    CHECK (board.TakeValues ().front () == 1.0f);
    CHECK (slide.GetIndex () == 2);
    CHECK (board.FrameShown (slide) == 2);
}
