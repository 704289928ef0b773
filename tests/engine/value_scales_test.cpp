#include "value_scales.h"

#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("Value scales: frequencies are the preferred numbers R40, qualities twelve steps an octave")
{
    for (std::size_t i = 0; i < qValue.size (); ++i)
        CHECK (qValue[i] == std::round (50 * std::pow (2.0, static_cast<double> (i) / 12)) / 100);
    for (std::size_t i = 0; i < frequencyHz.size (); ++i)
    {
        const double exact = std::pow (10.0, static_cast<double> (i + 48) / 40);
        CHECK (frequencyHz[i] == Approx (exact).epsilon (0.013)); // the series itself rounds by up to 1.26 %
        CHECK ((i < 40 || frequencyHz[i] == Approx (10 * frequencyHz[i - 40]).epsilon (1e-15)));
    }
}

TEST_CASE ("Value scales: no attack or release time stands out between its neighbours")
{
    for (const std::span<const double> table :
         { std::span<const double> (attackMs), std::span<const double> (releaseMs) })
        for (std::size_t i = 1; i + 1 < table.size (); ++i)
            CHECK (table[i] == Approx (std::sqrt (table[i - 1] * table[i + 1])).epsilon (0.015));
    CHECK (attackMs[57] == 0.092);
    CHECK (attackMs.back () == 80);
    CHECK (releaseMs[164] == 100.1);
    CHECK (releaseMs.back () == 999);
}

TEST_CASE ("Value scales: a value finds the nearest step in the parameter's own range, the lower of two equals")
{
    struct Row
    {
        std::uint32_t parameter;
        double value;
        double step;
    };
    const Row rows[] = {
        { 0, 3.14, 62.8 }, { 0, 11, 200 },                      // the drive's step need not be whole
        { 3, 499, 119 },   { 3, 500, 119 },    { 3, 600, 120 }, // a ratio above the last finite one
        { 12, 1030, 72 },                                       // halfway from 1000 to 1060
        { 1, 0.01, 57 },   { 2, 1.0, 24 },     { 10, 100, 60 }, // the low ends
        { 15, 5000, 72 },  { 17, 18.04, 360 }, { 17, 0, 180 },  // the high ends, and the middle
        { 4, 1.0, 0 },     { 0x10001, 1, 0 },                   // have no scale
    };
    for (const auto& [parameter, value, step] : rows)
    {
        CAPTURE (parameter);
        CHECK (valueToStep (parameter, value) == Approx (step));
    }
    CHECK (stepToValue (ratioValue, 121) == 0.0);
    CHECK (stepToValue (ratioValue, -1) == 0.0);
}
