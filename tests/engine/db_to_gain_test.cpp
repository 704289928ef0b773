#include "db_to_gain.h"

#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("DbToGain: 20 dB are a factor of ten, and back")
{
    DbToGain gain;
    CHECK (gain (0.0) == 1.0);
    CHECK (gain (20.0) == Approx (10.0));
    CHECK (gain (-40.0) == Approx (0.01));
    CHECK (gain (20.0) == Approx (10.0));
}

TEST_CASE ("DbToGain: a level without a finite gain keeps the gain before")
{
    DbToGain gain;
    gain (20.0);
    CHECK (gain (1e9) == Approx (10.0));
}
