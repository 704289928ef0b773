#include "meter_scales.h"

#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

double gain (double db)
{
    return std::pow (10.0, db / 20);
}

} // namespace

TEST_CASE ("Meter scales: a lamp of the gain reduction lights up at its decibels")
{
    CHECK (gainReductionPosition (gain (-24.5)) == 0.0);
    CHECK (gainReductionPosition (gain (-24)) == 0.0);
    CHECK (gainReductionPosition (gain (-22)) == Approx (1 / 36.0));
    CHECK (gainReductionPosition (gain (-12)) == Approx (9 / 36.0));
    CHECK (gainReductionPosition (gain (-12) - 0.002) == Approx (8 / 36.0));
    CHECK (gainReductionPosition (gain (-6)) == Approx (18 / 36.0));
    CHECK (gainReductionPosition (gain (-1)) == Approx (33 / 36.0));
    CHECK (gainReductionPosition (1.0) == 1.0);
}

TEST_CASE ("Meter scales: a lamp of the output lights up at its decibels")
{
    CHECK (outputPosition (0.0) == 0.0);
    CHECK (outputPosition (gain (-63)) == Approx (1 / 34.0));
    CHECK (outputPosition (gain (-63) - 0.00011) == 0.0);
    CHECK (outputPosition (gain (-30)) == Approx (11 / 34.0));
    CHECK (outputPosition (gain (-3)) == Approx (32 / 34.0));
    CHECK (outputPosition (0.9998) == Approx (32 / 34.0));
    CHECK (outputPosition (1.0) == 1.0);
    CHECK (outputPosition (3.0) == 1.0);
}
