#include "level_detector.h"

#include "block_math.h"

#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("LevelDetector: silence is the lowest level, and new times keep the present one")
{
    LevelDetector detector;
    detector.setTimes (0.2, 0.01);
    Recursions r{};
    detector.gather (r);
    double level = -1.5;
    blockMath ().run (r, &level, nullptr, nullptr, 1);
    CHECK (level == -1.5);
    r.detected = 0.25;
    detector.scatter (r);
    detector.setTimes (0.5, 0.5);
    detector.gather (r);
    CHECK (r.detected == 0.25);
    detector.reset ();
    detector.gather (r);
    CHECK (r.detected == -1.5);
}
