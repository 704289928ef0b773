#include "set_file.h"
#include "set_plot.h"
#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("keypoints: a plot holds the curves that the panel's values mean")
{
    // Flat, the threshold at -20 dB for "Drive" 5, a ratio of 3000.
    auto set = keypoints::EmptySet ();
    set.rows[1] = { 221, 164, 120, 1, 100, 100, 60, 180, 20, 112, 180, 84, 180, 20, 32, 180, 180 };
    const auto page = keypoints::PlotOf ("a", set);
    const auto& equalizer = page.diagrams[0].curves;
    const auto& compressor = page.diagrams[1].curves;
    REQUIRE (compressor.size () == 1);
    CHECK (compressor[0].endLabel == "2");
    CHECK (compressor[0].samples.front ().y == doctest::Approx (-60.0));
    CHECK (compressor[0].samples.back ().x == doctest::Approx (0.0));
    CHECK (compressor[0].samples.back ().y == doctest::Approx (-20.0).epsilon (0.001));
    for (const auto& sample : equalizer[0].samples)
        CHECK (std::abs (sample.y) < 1e-9);
}
