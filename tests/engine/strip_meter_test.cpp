#include "strip_meter.h"

#include <doctest/doctest.h>
#include <limits>

using namespace tessaly;
using doctest::Approx;

namespace
{

double readingAfter (StripMeter& meter, double highest)
{
    meter.beginBlock (64);
    meter.feedHighest (highest, 64);
    return meter.reading ();
}

} // namespace

TEST_CASE ("StripMeter: clearing forgets the level but keeps the reading for a block, and infinity shows once")
{
    StripMeter meter;
    readingAfter (meter, 1.0);
    meter.clear ();
    CHECK (meter.reading () == 1.0);
    CHECK (readingAfter (meter, 0.25) == 0.25);
    CHECK (readingAfter (meter, std::numeric_limits<double>::infinity ()) > 1e300);
    CHECK (readingAfter (meter, 0.5) == 0.5);
}
