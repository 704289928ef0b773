#include "meter_scales.h"

#include "strip_model.h"

#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("Meter scales: a lamp lights up at its decibels")
{
    for (int tenths = -700; tenths <= 60; ++tenths)
        for (const double off : { -1.1e-3, -1.1e-4, -0.9e-4, 0.0 }) // below 0 dB a level counts as a little higher
        {
            const double level = std::max (std::pow (10.0, tenths / 200.0) + off, 0.0);
            CAPTURE (level);
            CHECK (outputPosition (level) == Approx (model::OutputPosition (level)));
            if (level <= 1.0)
                CHECK (gainReductionPosition (level) == Approx (model::ReductionPosition (level)));
        }
    CHECK (gainReductionPosition (0.2512) == Approx (9 / 36.0)); // -12 dB
    CHECK (outputPosition (0.0317) == Approx (11 / 34.0));       // -30 dB
}
