#include "compressor.h"

#include "gain_computer.h"
#include "measure.h"
#include "value_scales.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <tuple>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr std::int32_t kInfiniteRatio = 120;

/// A threshold of -30 dB and, at first, the highest ratio.
struct CompressorAtThirty : Compressor
{
    explicit CompressorAtThirty (Knee shape, std::int32_t ratioStep = kInfiniteRatio)
    {
        setParameter (StripParameter::drive, 150);
        setParameter (StripParameter::knee, shape);
        setParameter (StripParameter::ratio, ratioStep);
    }
};

/// The gain under a long square wave at half the rate: a constant level that passes the side chain unchanged.
double steadyGain (Compressor& compressor, double level)
{
    for (int n = 0; n < 60000; ++n)
        oneSample (compressor, n % 2 == 0 ? level : -level);
    return compressor.smallestGain ();
}

/// Textbook curve of a compressor with a quadratic knee `widthDb` wide around the threshold, all in dB.
double textbookOutputDb (double inputDb, double thresholdDb, double widthDb, double ratio)
{
    const double over = inputDb - thresholdDb;
    if (2 * over <= -widthDb)
        return inputDb;
    if (2 * over > widthDb)
        return thresholdDb + over / ratio;
    return inputDb + (1 / ratio - 1) * std::pow (over + widthDb / 2, 2) / (2 * widthDb);
}

} // namespace

TEST_CASE ("Compressor: a long steady level lands on the textbook curve, which is the one drawn")
{
    for (const auto& [knee, widthDb] : { std::pair (kSoftKnee, 52), { kMiddleKnee, 20 }, { kHardKnee, 0 } })
        for (const std::int32_t ratioStep : { 0, 60, kInfiniteRatio })
        {
            CompressorAtThirty compressor (knee, ratioStep);
            for (const double inputDb : { -57.0, -45.0, -33.0, -29.0, -23.0, -15.0, 0.0 })
            {
                const double expected = textbookOutputDb (inputDb, -30, widthDb, stepToValue (ratioValue, ratioStep));
                const double gain = steadyGain (compressor, fromDb (inputDb));
                CHECK (inputDb + toDb (gain) == Approx (expected).epsilon (2e-5));
                CHECK (compressor.compressorCurveDb (inputDb) == Approx (expected).epsilon (2e-5));
                CHECK ((gain == 1.0 || expected != inputDb));
            }
        }
}

TEST_CASE ("Compressor: with full makeup a full-scale input comes out at full scale, through a gain that fades in")
{
    CompressorAtThirty compressor (kHardKnee);
    compressor.setParameter (StripParameter::makeupAmount, 200);
    CHECK (std::abs (oneSample (compressor, 1.0)) < 0.1);
    steadyGain (compressor, 1.0);
    CHECK (oneSample (compressor, 1.0) == Approx (1.0).epsilon (1e-5));
    compressor.setParameter (StripParameter::ratio, 0);
    CHECK (oneSample (compressor, -1.0) == Approx (-1.0).epsilon (0.01)); // the slope glides too
}

TEST_CASE ("Compressor: the threshold is Drive plus offset, in limits, and a negative offset fades out near Drive 0")
{
    // Steps of Drive and offset, and the threshold in dB
    const std::tuple<int, int, double> cases[] = { { 0, 0, 0.0 },    { 20, 200, 0.0 }, { 25, 115, -2.0 },
                                                   { 31, 0, -26.2 }, { 32, 0, -26.4 }, { 15, 0, -23.0 * 3 / 6.2 },
                                                   { 200, 0, -54.0 } };
    for (const auto& [driveStep, offsetStep, thresholdDb] : cases)
    {
        Compressor compressor;
        CHECK (compressor.compressorCurveDb (-1.0) == -1.0); // at 0 dB the knee is hard, whatever is set
        compressor.setParameter (StripParameter::drive, driveStep);
        compressor.setParameter (StripParameter::driveOffset, offsetStep);
        const double tenOver = compressor.compressorCurveDb (thresholdDb + 10); // where the knee ends
        CHECK (tenOver - 10.0 / 3000 == Approx (thresholdDb).epsilon (1e-9));
    }
}
