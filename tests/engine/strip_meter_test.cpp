#include "strip_meter.h"

#include "block_math.h"
#include "measure.h"
#include "meter_scales.h"
#include <doctest/doctest.h>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

double readingAfter (StripMeter& meter, const std::vector<double>& block)
{
    meter.beginBlock (static_cast<std::uint32_t> (block.size ()));
    for (const double v : block) // as the strip does it, a sample at a time
    {
        float rounded = 0.0F;
        meter.feedHighest (blockMath ().roundToOutput (&v, &rounded, 1), 1);
    }
    return meter.reading ();
}

} // namespace

TEST_CASE ("StripMeter: reads the positive half of the wave and what lies beyond -1, and falls by 0.08 a block")
{
    StripMeter meter;
    CHECK (readingAfter (meter, { -0.9, -1.0 }) == 0.0);
    CHECK (readingAfter (meter, { 0.25, 0.1, -0.9 }) == 0.25);
    CHECK (readingAfter (meter, { 0.25, -1.5, 1.2 }) == 1.5);
    CHECK (readingAfter (meter, { 0.0 }) == Approx (1.5 * 0.92));
    CHECK (readingAfter (meter, { 0.0, 0.0, 0.0, 0.0 }) == Approx (1.5 * 0.92 * 0.92));
    CHECK (readingAfter (meter, {}) == Approx (1.5 * 0.92 * 0.92));
    CHECK (readingAfter (meter, { 0.5 }) == Approx (0.5 + 0.92 * (1.5 * 0.92 * 0.92 - 0.5)));
    meter.clear ();
    CHECK (meter.reading () > 1.0); // shown one block later
    CHECK (readingAfter (meter, { 0.25 }) == 0.25);
}

TEST_CASE ("Meter scales: the levels are whole or third decibels to ten decimals")
{
    const std::vector<double> reductions{ -24,    -22,    -20,    -18,    -17,    -16,    -15,    -14,  -13,    -12,
                                          -11,    -10,    -9,     -8.5,   -8,     -7.5,   -7,     -6.5, -6,     -5.666,
                                          -5.333, -5,     -4.666, -4.333, -4,     -3.666, -3.333, -3,   -2.666, -2.333,
                                          -2,     -1.666, -1.333, -1,     -0.666, -0.333, 0 };
    const std::vector<double> outputs{ -63, -60, -56, -53, -50, -46, -43, -40, -36, -33, -30, -28, -26, -24, -22, -20,
                                       -18, -17, -16, -15, -14, -13, -12, -11, -10, -9,  -8,  -7,  -6,  -5,  -4,  -3 };
    const auto rounded = [] (double db) { return std::round (fromDb (db) * 1e10) / 1e10; };
    REQUIRE (reductions.size () == kGainReductionScale.size ());
    REQUIRE (outputs.size () + 1 == kOutputScale.size ());
    for (std::size_t i = 0; i < reductions.size (); ++i)
        CHECK (kGainReductionScale[i] == rounded (reductions[i]));
    for (std::size_t i = 0; i < outputs.size (); ++i)
        CHECK (kOutputScale[i] == rounded (outputs[i]));
    CHECK (kOutputScale.back () == 0.9999999999);
}

TEST_CASE ("Meter scales: a level lights the lamps up to its entry, with limits at both ends")
{
    CHECK (gainReductionPosition (0.0) == 0.0);
    CHECK (gainReductionPosition (fromDb (-24.2)) == 0.0);
    CHECK (gainReductionPosition (fromDb (-12)) == 9.0 / 36);
    CHECK (gainReductionPosition (fromDb (-12.1)) == 8.0 / 36);
    CHECK (gainReductionPosition (0.9991) == 1.0);
    CHECK (gainReductionPosition (1.0) == 1.0);

    CHECK (outputPosition (0.0006) == 0.0);
    CHECK (outputPosition (0.00061) == 1.0 / 34);
    CHECK (outputPosition (fromDb (-20)) == 16.0 / 34);
    CHECK (outputPosition (0.9998) == 32.0 / 34);
    CHECK (outputPosition (0.9999) == 1.0);
    CHECK (outputPosition (4.0) == 1.0);
}
