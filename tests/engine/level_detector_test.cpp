#include "level_detector.h"

#include <cmath>
#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;
using doctest::Approx;

namespace
{

/// One sample at a time, from its linear level.
struct Detector
{
    double detectLevel (double u, double attack, double release)
    {
        double level = std::abs (u) >= 0.0316 ? std::log10 (std::abs (u)) : -1.5;
        detector.setTimes (attack, release);
        detector.follow (&level, 1);
        return level;
    }
    LevelDetector detector;
};

} // namespace

TEST_CASE ("LevelDetector: far from its target it falls 8 dB a release time, at every sample rate")
{
    for (const double rate : { 44100.0, 48000.0, 96000.0, 192000.0 })
    {
        const double attack = 1 / (0.010 * rate);
        const double release = 1 / (0.1001 * rate);
        Detector detector;
        while (detector.detectLevel (20.0, attack, release) < 1.25)
        {
        }
        int samples = 0;
        const double from = detector.detectLevel (0.0, attack, release);
        while (detector.detectLevel (0.0, attack, release) > from - 1.0)
            ++samples;
        CHECK (samples / rate == Approx (2.5 * 0.1001).epsilon (0.001)); // 20 dB in some 250 ms
    }
}

TEST_CASE ("LevelDetector: one sample closes at most 0.925 of the distance upwards")
{
    Detector detector;
    const double D = 0.075 * 1.5; // what the first sample leaves
    CHECK (detector.detectLevel (1.0, 1.0, 1.0) == Approx (-D).epsilon (1e-12));
    CHECK (detector.detectLevel (-1.0, 1.0, 1.0) == Approx (-D + 6.25 * D * D + 2 * D * std::sqrt (6.25 * 0.00018)));
}

TEST_CASE ("LevelDetector: it lands softly on a steady level, in silence on -1.5 and no further")
{
    Detector detector;
    double level = 0.0;
    double lowest = 0.0;
    for (int n = 0; n < 100000; ++n)
        level = detector.detectLevel (n % 2 == 0 ? 3.0 : -3.0, 0.002, 0.0002);
    CHECK (level == Approx (std::log10 (3.0)).epsilon (1e-9));
    const double approach = 2 * std::sqrt (6.25 * 0.002 * 0.00018); // of a small distance a sample, from either side
    const double above = detector.detectLevel (3.0 * std::pow (10, 1e-6), 0.002, 0.0002);
    CHECK (above - level == Approx (1e-6 * approach).epsilon (0.001));
    CHECK (detector.detectLevel (3.0 * std::pow (10, -1e-6), 0.002, 0.0002) - above ==
           Approx (-1e-6 * approach).epsilon (0.01));
    for (int n = 0; n < 200000; ++n)
        lowest = std::fmin (lowest, level = detector.detectLevel (0.0, 0.002, 0.0002));
    CHECK (level == Approx (-1.5).epsilon (1e-9));
    CHECK (lowest >= -1.5 - 1e-12);
}
