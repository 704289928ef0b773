#include "level_detector.h"

#include "block_math_versions.h"
#include "strip_model.h"

#include <algorithm>
#include <cmath>
#include <doctest/doctest.h>
#include <random>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

/// The levels that the detector answers to the given ones, from its beginning at -1.5.
std::vector<double> detected (std::vector<double> levels, double attackCoef, double releaseCoef,
                              const BlockMath& math = blockMath ())
{
    LevelDetector detector;
    detector.setTimes (attackCoef, releaseCoef);
    Recursions r{};
    detector.gather (r);
    math.run (r, levels.data (), nullptr, nullptr, levels.size ());
    return levels;
}

} // namespace

TEST_CASE ("LevelDetector: each sample moves it by the squares of its law")
{
    std::minstd_rand random (1);
    std::uniform_real_distribution<double> anyLevel (-1.5, 1.5);
    std::vector<double> levels (2000);
    for (std::size_t i = 0; i < levels.size (); ++i)
        levels[i] = i % 1000 < 500 ? anyLevel (random) : levels[i - i % 100]; // also standing for a while
    for (const auto& [attack, release] : { std::pair (1.0, 1.0), { 0.25, 0.0023 }, { 0.001, 0.0002 } })
        for (const BlockMath* math : blockMathVersions ())
        {
            const std::vector<double> heard = detected (levels, attack, release, *math);
            model::Detector expected;
            double worst = 0.0;
            for (std::size_t i = 0; i < levels.size (); ++i)
                worst = std::max (worst, std::abs (heard[i] - expected.Next (levels[i], attack, release)));
            CAPTURE (attack);
            CHECK (worst < 1e-12);
        }
}

TEST_CASE ("LevelDetector: it falls by 8 dB in a release time")
{
    constexpr int kReleaseSamples = 4800;
    std::vector<double> levels (3 * kReleaseSamples, -1.5);
    levels.front () = 40.0;
    const std::vector<double> heard = detected (levels, 0.2, 1.0 / kReleaseSamples);
    for (const std::size_t at : { 10U, 5000U })
        CHECK (20 * (heard[at] - heard[at + kReleaseSamples]) == Approx (8.0).epsilon (1e-9));
}

TEST_CASE ("LevelDetector: silence is the lowest level, and new times keep the present one")
{
    CHECK (detected ({ -1.5, -1.5 }, 0.2, 0.01).back () == -1.5);
    LevelDetector detector;
    Recursions r{};
    r.detected = 0.25;
    detector.scatter (r);
    detector.setTimes (0.5, 0.5);
    detector.gather (r);
    CHECK (r.detected == 0.25);
    detector.reset ();
    detector.gather (r);
    CHECK (r.detected == -1.5);
}
