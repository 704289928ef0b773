#include "compressor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

/// Where the curve of a hard knee and the highest ratio leaves the diagonal, dB.
double thresholdDb (const Compressor& compressor)
{
    return compressor.compressorCurveDb (0.0) * 3000 / 2999; // at 0 dB in, but for 1/3000, the threshold comes out
}

struct HardCompressor : Compressor
{
    HardCompressor (std::int32_t drive, std::int32_t offset)
    {
        setParameter (StripParameter::knee, 2);
        setParameter (StripParameter::drive, drive);
        setParameter (StripParameter::driveOffset, offset);
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

TEST_CASE ("Compressor: the threshold is the sum of drive and offset from -54 to 0 dB")
{
    for (const auto& [drive, offset, expected] :
         { std::array{ 100, 100, -20 }, { 100, 150, -10 }, { 100, 200, 0 }, { 200, 0, -54 }, { 50, 50, -20 } })
        CHECK (thresholdDb (HardCompressor (drive, offset)) == Approx (expected));
}

TEST_CASE ("Compressor: a negative offset fades out as drive nears 0")
{
    CHECK (HardCompressor (0, 0).compressorCurveDb (-1.0) == -1.0);
    CHECK (thresholdDb (HardCompressor (31, 50)) == Approx (-16.2)); // -6.2 dB: still the plain sum
    CHECK (thresholdDb (HardCompressor (15, 50)) == Approx (-13.0 * 3.0 / 6.2));
}

TEST_CASE ("Compressor: makeup undoes its amount of a full-scale reduction")
{
    for (const int amount : { 0, 100, 200 })
    {
        HardCompressor compressor (100, 100); // -20 dB
        compressor.setParameter (StripParameter::ratio, 60);
        compressor.setParameter (StripParameter::makeupAmount, amount);
        const double reductionDb = -compressor.compressorCurveDb (0.0);
        CHECK (20 * std::log10 (landedMakeup (compressor)) == Approx (reductionDb * amount / 200));
    }
}

TEST_CASE ("Compressor: parameters of other stages change nothing")
{
    HardCompressor compressor (100, 100);
    const double makeup = landedMakeup (compressor);
    for (const auto other : { StripParameter::highFreq, StripParameter::lowGain, StripParameter::totalGain,
                              StripParameter::equalizerBypass, StripParameter::morph, StripParameter::bypass })
        compressor.setParameter (other, 3);
    CHECK (landedMakeup (compressor) == makeup);
    CHECK (compressor.takeUpSettings () > kChunkSamples); // no crossfade
}

TEST_CASE ("Compressor: each setting of the side chain is crossfaded")
{
    for (const auto parameter :
         { StripParameter::sideChainFreq, StripParameter::sideChainGain, StripParameter::sideChainQ })
    {
        Compressor compressor;
        compressor.startUp (48000);
        compressor.setParameter (parameter, 40);
        CHECK (compressor.takeUpSettings () == 480);
    }
}
