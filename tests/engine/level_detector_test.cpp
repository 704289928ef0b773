#include "level_detector.h"

#include <cmath>
#include <doctest/doctest.h>
#include <initializer_list>
#include <random>

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

TEST_CASE ("LevelDetector: it moves by its definition's squares, at any speed and over any distance")
{
    std::minstd_rand generator (1);
    std::uniform_real_distribution<double> anyLevel (-1.5, 6.0);
    for (const double attack : { 1.0, 0.2, 0.002, 1e-5 })
        for (const double release : { 1.0, 0.002, 1e-6 })
        {
            LevelDetector detector;
            detector.setTimes (attack, release);
            const double A = 6.25 * attack;
            const double r = std::sqrt (0.00018 / A);
            double expected = -1.5;
            double worst = 0.0;
            for (int n = 0; n < 2000; ++n)
            {
                const double nearby = expected + r * (n % 7 - 5);
                double level = n % 3 == 0 ? anyLevel (generator) : std::fmax (-1.5, nearby);
                const double D = level - expected;
                if (D > 0)
                    expected += std::fmin (A * (r + D) * (r + D) - 0.00018, 0.925 * D);
                else
                    expected +=
                        std::fmax (8 * (A * std::pow (std::fmax (r + D / 8, 0.0), 2) - 0.00018), -0.4 * release);
                detector.follow (&level, 1);
                worst = std::fmax (worst, std::abs (level - expected));
            }
            CHECK (worst < 1e-10);
        }
}
