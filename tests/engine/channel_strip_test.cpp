#include "channel_strip.h"

#include "measure.h"
#include "strip_under_test.h"
#include "value_scales.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <limits>
#include <random>

using namespace tessaly;
using doctest::Approx;

namespace
{

std::vector<float> whiteNoise (std::size_t count)
{
    std::vector<float> samples (count);
    std::minstd_rand random;
    for (float& sample : samples)
        sample = 0.25F * (float (random ()) / float (std::minstd_rand::max ()) - 0.5F);
    return samples;
}

} // namespace

TEST_CASE ("Channel_Strip: the sound of the equalizer is the response that is drawn, after a resume at once")
{
    StripUnderTest test;
    for (std::int32_t index = 0; index <= std::int32_t (StripParameter::lowGain); ++index)
        test.SetParameter (index, float (40 + (7 + index) % 13));
    test.set (StripParameter::totalGain, 180);
    test.set (StripParameter::compressorBypass, 1);
    for (const double f : { 20.0, 158.0, 1000.0, 5000.0, 18000.0 })
    {
        test.strip.ResumeOld ();
        const double heard = toDb (measuredGain ([&] (double x) { return test.run ({ float (x) })[0]; }, 44100, f));
        const double bands =
            test.strip.eqResponseDb (f, 1) + test.strip.eqResponseDb (f, 2) + test.strip.eqResponseDb (f, 3);
        CHECK (test.strip.eqResponseDb (f, 0) == Approx (heard).epsilon (1e-4));
        CHECK (bands == Approx (heard).epsilon (1e-4));
    }
    CHECK (test.strip.eqResponseDb (30000, 3) == test.strip.eqResponseDb (0.48 * 44100, 3));
}

TEST_CASE ("Channel_Strip: settings read back in their units, steps are truncated, foreign indexes change nothing")
{
    StripUnderTest test;
    test.set (StripParameter::highFreq, 124.9F);
    test.set (StripParameter::midGain, 0);
    test.set (StripParameter::midQ, 60);
    test.set (StripParameter::lowFreq, 40);
    for (const std::int32_t foreign : { 20, -1, 22 })
        test.strip.SetParameterOld (foreign, 5);
    const double expected[] = { -1.0, 20000, 0.0, 200, -18, 16, 160, 0.0, -1.0 };
    for (std::int16_t index = 9; index <= 17; ++index)
        CHECK (test.strip.eqValue (index) == expected[index - 9]);
    CHECK (test.strip.bandFrequency (1) == 160);
    CHECK (test.strip.bandGain (2) == -18);
    CHECK (test.strip.bandFrequency (4) == -1.0);
    CHECK (test.strip.bandGain (0) == -1.0);
    test.strip.SetSampleRateOld (48000.5);
    CHECK (test.strip.GetTail () == 336003);
}

TEST_CASE ("Channel_Strip: samples that are no numbers are gone in the next block, from sound, detector and meters")
{
    const std::vector<float> tone = whiteNoise (4096);
    for (const float bad : { std::numeric_limits<float>::quiet_NaN (), std::numeric_limits<float>::infinity () })
    {
        StripUnderTest test;
        StripUnderTest clean;
        for (StripUnderTest* strip : { &test, &clean })
            strip->set (StripParameter::drive, 150);
        test.run (tone);
        std::vector<float> poisoned = tone;
        poisoned[2000] = bad;
        test.run (poisoned);
        std::vector<float> after = test.run (tone);
        CHECK (std::ranges::all_of (after, [] (float x) { return std::isfinite (x) && std::abs (x) < 4.0F; }));
        for (int block = 0; block < 200; ++block)
            after = test.run (tone);
        std::vector<float> expected;
        for (int block = 0; block < 203; ++block)
            expected = clean.run (tone);
        CHECK (std::ranges::equal (after, expected, [] (float x, float y) { return std::abs (x - y) < 1e-6F; }));
        CHECK (test.published == clean.published);
    }
}

TEST_CASE ("Channel_Strip: steps beyond all scales and rates of nothing leave the sound finite, what was there goes on")
{
    for (int index = 0; index < 22; ++index)
        for (const float step : { -1e30F, -7.0F, 999.0F, 1e30F, std::numeric_limits<float>::quiet_NaN () })
        {
            StripUnderTest test;
            test.SetParameter (index, step);
            test.strip.SetSampleRateOld (0.0);
            test.strip.SetSampleRateOld (std::numeric_limits<double>::quiet_NaN ());
            test.strip.ResumeOld ();
            const auto out = test.run (whiteNoise (2048));
            CAPTURE (index);
            CAPTURE (step);
            CHECK (std::ranges::none_of (out, [] (float x) { return std::isnan (x); }));
        }
}

TEST_CASE ("Channel_Strip: a rate that filters cannot run at is refused, and the sound goes on")
{
    for (const double noRate : { 0.0, 15.0, 20.0, -48000.0, 1e300, std::numeric_limits<double>::infinity () })
    {
        CAPTURE (noRate);
        StripUnderTest test;
        StripUnderTest untold;
        test.strip.SetSampleRateOld (noRate);
        CHECK (test.strip.GetTail () == untold.strip.GetTail ());
        CHECK (test.run (whiteNoise (2048)) == untold.run (whiteNoise (2048)));
    }
}
