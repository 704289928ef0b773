#include "level_detector.h"

#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("LevelDetector: far from its target it falls 8 dB a release time, at every sample rate")
{
    for (const double rate : { 44100.0, 48000.0, 96000.0, 192000.0 })
    {
        LevelDetector detector;
        detector.setTimes (1 / (0.010 * rate), 1 / (0.1001 * rate));
        const auto after = [&] (double level)
        {
            detector.follow (&level, 1);
            return level;
        };
        while (after (1.3) < 1.25)
        {
        }
        int samples = 0;
        const double from = after (-1.5);
        while (after (-1.5) > from - 1.0)
            ++samples;
        CHECK (samples / rate == Approx (2.5 * 0.1001).epsilon (0.001)); // 20 dB in some 250 ms
    }
}
