#include "anim_dial.h"
#include "pane_fixture.h"
#include "switches.h"
#include "vu_meters.h"
#include <doctest/doctest.h>
#include <limits>

using namespace tessaly;

namespace
{

/// The frame of its strip that a control of four positions shows for a value.
template <typename Control>
int FrameAt (float value, std::int32_t frames)
{
    ControlFixture<Control> fixture ({ 0, 0, 10, 10 });
    fixture.control.SetAnimActive (&fixture.strip, frames, 1, {});
    fixture.control.SetStep (0.25f);
    fixture.control.SetValue (value);
    return fixture.FrameShown (fixture.control);
}

} // namespace

TEST_CASE ("Strips: a dial shows the frame nearest to its value, a meter its part of the range, a switch its position")
{
    for (const auto& [value, frame] :
         { std::pair{ 0.04f, 0 }, { 0.05f, 1 }, { 0.94f, 9 }, { 1e30f, 10 }, { 1.0f, 10 } })
        CHECK (FrameAt<ZAnimDial> (value, 11) == frame);
    CHECK (FrameAt<ZAnimDial> (std::numeric_limits<float>::quiet_NaN (), 11) == 0);
    for (const auto& [value, frame] : { std::pair{ 0.049f, 0 }, { 0.05f, 1 }, { 0.999f, 19 }, { 1.0f, 19 } })
        CHECK (FrameAt<ZAnimVuMeter> (value, 20) == frame);
    CHECK (FrameAt<ZAnimRotarySwitch> (2.0f / 3, 40) == 2); // whatever the length of the strip
}
