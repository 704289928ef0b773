#include "pane_fixture.h"
#include "sliders.h"
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

using Fixture = ControlFixture<ZKnobSlider>;

// 100 long with a thumb of 10: its travel is 90 from x 55, where its thumb's centre is at value 0.
constexpr ZRect kPlace{ 50, 50, 150, 60 };

} // namespace

TEST_CASE ("ZSlider: a jump centres the thumb on the pointer and follows it, a fine drag ends where the pointer is")
{
    Fixture fixture (kPlace, kSliderJump, 0.0f);
    CHECK (fixture.Pressed ({ 100, 55 }) == Values{ 0.5f });
    fixture.CheckDrag ({ { { 109, 55 }, 0.6 }, { { 500, 55 }, 1.0 }, { { -500, 55 }, 0.0 }, { { 136, 55 }, 0.9 } });
    CHECK (fixture.control.GetKnobRect () == ZRect{ 131, 50, 141, 60 });
    CHECK (fixture.Pressed ({ 64, 55 }, kShift).empty ());
    fixture.CheckDrag ({ { { 28, 55 }, 0.8, kShift },     // 0.9 less a quarter of 36 / 90
                         { { 73, 55 }, 0.2 },             // without shift: the pointer's place
                         { { 109, 55 }, 0.3, kShift } }); // and finely on from there
}

TEST_CASE ("ZSlider: by the thumb only, a press on the track is refused")
{
    Fixture fixture (kPlace, kSliderThumb, 0.5f);
    CHECK_FALSE (fixture.Press (fixture.control, { 60, 55 }));
    CHECK (fixture.Press (fixture.control, { 96, 55 }));
    fixture.CheckDrag ({ { { 96, 55 }, 0.5 }, { { 105, 55 }, 0.6 } });
    fixture.CheckDrag ({ { { 141, 55 }, 0.7, kShift }, { { 105, 55 }, 0.6, kShift } });
    fixture.control.SetStyle (kHorizontal | kReversed);
    CHECK (fixture.Press (fixture.control, { 92, 55 }));
    fixture.CheckDrag ({ { { 101, 55 }, 0.5 } });
    CHECK_FALSE (fixture.Press (fixture.control, { 100, 55 }, 0, kRightButton));
}

TEST_CASE ("ZSlider: in steps, one comes at the press, further ones after a while until the pointer is reached")
{
    constexpr std::uint32_t kStart = 0xFFFFFF00u; // wraps on the way
    Fixture fixture (kPlace, kSliderPage, 0.0f);
    fixture.control.SetStep (0.1f);
    const auto after = [&fixture] (std::uint32_t milliseconds, std::int32_t x, double value, std::int32_t modifiers = 0)
    {
        CAPTURE (milliseconds);
        fixture.window.time = kStart + milliseconds;
        fixture.CheckDrag ({ { { x, 55 }, value, modifiers } });
    };
    fixture.window.time = kStart;
    fixture.Pressed ({ 85, 55 }); // at a third
    after (0, 85, 0.1);
    after (500, 85, 0.1);
    after (501, 85, 0.2);
    after (531, 85, 0.2);
    after (532, 85, 0.3, kShift);
    after (652, 85, 0.3); // 120 apart
    after (653, 85, 0.4);
    after (700, 85, 0.4);   // passed
    after (1700, 145, 0.4); // for good

    fixture.Pressed ({ 60, 55 });
    after (1700, 60, 0.3);        // downwards
    fixture.Pressed ({ 82, 55 }); // on the thumb
    after (1700, 91, 0.4);
}

TEST_CASE ("ZSlider: an endless drag holds the hidden cursor where it was pressed and shows it again, come what may")
{
    constexpr ZPoint kPress{ 70, 55 };
    Fixture fixture (kPlace, kSliderEndless, 0.5f);
    fixture.Pressed (kPress);
    CHECK (fixture.window.cursorShown == 0);
    fixture.CheckDrag ({ { { 79, 55 }, 0.6 } });
    CHECK (fixture.window.pointer == kPress);
    fixture.CheckDrag ({ { { 79, 55 }, 0.7 },
                         { { 106, 55 }, 0.8, kShift },
                         { { 200, 55 }, 1.0 },
                         { { 61, 55 }, 0.9 } }); // turns at the stop at once
    fixture.Released ({ 61, 55 });
    CHECK (fixture.window.pointer == kPress);
    CHECK (fixture.window.cursorShown == 1);

    fixture.Pressed (kPress);
    fixture.Pressed (kPress); // again without a release
    CHECK (fixture.window.cursorShown == 0);
    fixture.control.SetMouseEnabled (false);
    CHECK_FALSE (fixture.Drag (fixture.control, { 80, 55 }));
    CHECK (fixture.window.cursorShown == 1);
}

TEST_CASE ("ZSlider: without travel nothing moves")
{
    for (const auto mode : { kSliderEndless, kSliderJump, kSliderThumb, kSliderPage })
    {
        Fixture fixture (kPlace, mode, 0.5f);
        fixture.control.SetKnobRect ({ 0, 0, mode == kSliderJump ? 300 : 100, 10 });
        fixture.Pressed ({ 70, 55 });
        fixture.CheckDrag ({ { { 90, 55 }, 0.5 } });
        CHECK (fixture.control.GetKnobRect ().left == 50);
    }
}
