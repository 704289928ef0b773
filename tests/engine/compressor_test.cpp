#include "compressor.h"

#include "gain_computer.h"
#include "measure.h"
#include "value_scales.h"
#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;
using doctest::Approx;

namespace
{

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
        for (const std::int32_t ratioStep : { 0, 60, 120 })
        {
            Compressor compressor;
            compressor.setParameter (StripParameter::knee, knee);
            CHECK (compressor.compressorCurveDb (-1.0) == -1.0);  // at a threshold of 0 dB every knee is hard
            compressor.setParameter (StripParameter::drive, 150); // -30 dB
            compressor.setParameter (StripParameter::ratio, ratioStep);
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
