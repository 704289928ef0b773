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

TEST_CASE ("StripMeter: it rises at once and falls by 8 percent of the way a block")
{
    StripMeter meter;
    CHECK (readingAfter (meter, 2.0) == 2.0);
    CHECK (readingAfter (meter, 1.0) == Approx (1.92));
    CHECK (readingAfter (meter, 0.0) == Approx (1.92 * 0.92));
}

TEST_CASE ("StripMeter: a block that comes in parts counts once, with its highest")
{
    StripMeter meter;
    meter.beginBlock (64);
    meter.feedHighest (0.5, 16);
    meter.feedHighest (0.75, 16);
    meter.feedHighest (0.25, 31);
    CHECK (meter.reading () == 0.0);
    meter.feedHighest (0.0, 1);
    CHECK (meter.reading () == 0.75);
}

TEST_CASE ("StripMeter: clearing forgets the level but keeps the reading for a block")
{
    StripMeter meter;
    readingAfter (meter, 1.0);
    meter.clear ();
    CHECK (meter.reading () == 1.0);
    CHECK (readingAfter (meter, 0.25) == 0.25);
}

TEST_CASE ("StripMeter: an infinite level shows once")
{
    StripMeter meter;
    CHECK (readingAfter (meter, std::numeric_limits<double>::infinity ()) > 1e300);
    CHECK (readingAfter (meter, 0.5) == 0.5);
}
