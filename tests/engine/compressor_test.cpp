#include "compressor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <doctest/doctest.h>
#include <tuple>

using namespace tessaly;
using doctest::Approx;

namespace
{

/// Where the curve of a hard knee and the highest ratio leaves the diagonal, dB.
double thresholdDb (const Compressor& compressor)
{
    return compressor.compressorCurveDb (0.0) * 3000 / 2999; // at 0 dB in, but for 1/3000, the threshold comes out
}

struct HardCompressor : StripSteps, Compressor
{
    HardCompressor (std::int32_t drive, std::int32_t offset)
        : Compressor (static_cast<StripSteps&> (*this))
    {
        set (StripParameter::knee, 2);
        set (StripParameter::drive, drive);
        set (StripParameter::driveOffset, offset);
    }
};

double landedMakeup (Compressor& compressor)
{
    std::array<double, kChunkSamples> samples{};
    std::array<double, kChunkSamples> level{};
    level.fill (-1.5); // no compression
    compressor.takeUpSettings ();
    for (int chunk = 0; chunk < 100; ++chunk)
    {
        samples.fill (1.0);
        compressor.applyGains (level.data (), samples.data (), samples.size ());
    }
    return samples.back ();
}

} // namespace

TEST_CASE ("Compressor: the threshold is the sum of drive and offset, the latter fading out as drive nears 0")
{
    for (const auto& [drive, offset, expectedDb] : { std::tuple{ 100, 150, -10.0 },
                                                     { 100, 200, 0.0 },
                                                     { 200, 0, -54.0 },
                                                     { 31, 50, -16.2 }, // -6.2 dB: still the plain sum
                                                     { 15, 50, -13.0 * 3.0 / 6.2 } })
        CHECK (thresholdDb (HardCompressor (drive, offset)) == Approx (expectedDb));
    CHECK (HardCompressor (0, 0).compressorCurveDb (-1.0) == -1.0);
}

TEST_CASE ("Compressor: makeup undoes its amount of a full-scale reduction")
{
    for (const int amount : { 0, 100, 200 })
    {
        HardCompressor compressor (100, 100); // -20 dB
        compressor.set (StripParameter::ratio, 60);
        compressor.set (StripParameter::makeupAmount, amount);
        const double reductionDb = -compressor.compressorCurveDb (0.0);
        CHECK (20 * std::log10 (landedMakeup (compressor)) == Approx (reductionDb * amount / 200));
    }
}

TEST_CASE ("Compressor: a setting of the side chain is crossfaded, one of another stage changes nothing")
{
    for (int index = 0; index <= int (StripParameter::bypass); ++index)
    {
        HardCompressor compressor (100, 100);
        compressor.startUp (48000);
        const double makeup = landedMakeup (compressor);
        compressor.set (static_cast<StripParameter> (index), 40);
        const bool isOfSideChain = index >= 7 && index <= 9;
        const bool isOfMakeup = index == 0 || index == 3 || index == 5 || index == 6;
        CAPTURE (index);
        CHECK ((compressor.takeUpSettings () == 480) == isOfSideChain);
        CHECK ((landedMakeup (compressor) == makeup) == !isOfMakeup);
    }
}
