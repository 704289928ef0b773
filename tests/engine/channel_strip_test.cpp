#include "channel_strip.h"

#include "measure.h"
#include "old_effect.h"
#include <algorithm>
#include <array>
#include <doctest/doctest.h>
#include <limits>
#include <random>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity ();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN ();

/// A strip at work under an effect that keeps the meters as they were last written.
class StripUnderTest : public ZOldEffect
{
public:
    StripUnderTest ()
        : ZOldEffect (nullptr)
    {
    }
    void SetMeter (std::int32_t index, float value) override { published.at (std::size_t (index)) = value; }

    void set (StripParameter parameter, float step) { strip.SetParameterOld (std::int32_t (parameter), step); }

    std::vector<float> run (std::vector<float> samples)
    {
        float* channel = samples.data ();
        strip.Process (&channel, &channel, std::int32_t (samples.size ()));
        return samples;
    }

    std::array<float, 2> published{ -1.0F, -1.0F };
    Channel_Strip strip{ this };
};

std::vector<float> whiteNoise (std::size_t count)
{
    std::vector<float> samples (count);
    std::minstd_rand random;
    for (float& sample : samples)
        sample = 0.25F * (float (random ()) / float (std::minstd_rand::max ()) - 0.5F);
    return samples;
}

} // namespace

TEST_CASE ("Channel_Strip: the equalizer's response is drawn at once, and heard so after a resume")
{
    StripUnderTest test;
    for (std::int32_t index = 0; index <= std::int32_t (StripParameter::lowGain); ++index)
        test.strip.SetParameterOld (index, float (40 + (7 + index) % 13));
    test.set (StripParameter::totalGain, 180);
    test.set (StripParameter::compressorBypass, 1);
    for (const double f : { 20.0, 158.0, 1000.0, 5000.0, 18000.0 })
    {
        const double bands =
            test.strip.eqResponseDb (f, 1) + test.strip.eqResponseDb (f, 2) + test.strip.eqResponseDb (f, 3);
        CHECK (test.strip.eqResponseDb (f, 0) == Approx (bands));
        test.strip.ResumeOld ();
        const double heard = measuredGain ([&] (double x) { return test.run ({ float (x) })[0]; }, 44100, f);
        CHECK (bands == Approx (20 * std::log10 (heard)).epsilon (1e-4));
    }
}

TEST_CASE ("Channel_Strip: NaN and infinity are gone in the next block")
{
    const std::vector<float> tone = whiteNoise (4096);
    for (const double bad : { kNaN, kInfinity })
    {
        StripUnderTest test;
        StripUnderTest clean;
        for (StripUnderTest* strip : { &test, &clean })
            strip->set (StripParameter::drive, 150);
        std::vector<float> poisoned = tone;
        poisoned[2000] = float (bad);
        test.run (poisoned);
        std::vector<float> after = test.run (tone);
        CHECK (std::ranges::all_of (after, [] (float x) { return std::isfinite (x) && std::abs (x) < 4.0F; }));
        for (int block = 0; block < 200; ++block)
            after = test.run (tone);
        std::vector<float> expected;
        for (int block = 0; block < 202; ++block)
            expected = clean.run (tone);
        CHECK (std::ranges::equal (after, expected, [] (float x, float y) { return std::abs (x - y) < 1e-6F; }));
        CHECK (test.published == clean.published);
    }
}

TEST_CASE ("Channel_Strip: steps beyond all scales leave the sound finite")
{
    for (int index = -1; index <= 22; ++index)
        for (const double step : { -1e30, -7.0, 999.0, 1e30, kNaN })
        {
            StripUnderTest test;
            test.strip.SetParameterOld (index, float (step));
            test.strip.ResumeOld ();
            CAPTURE (index);
            CAPTURE (step);
            CHECK (std::ranges::all_of (test.run (whiteNoise (2048)), [] (float x) { return std::isfinite (x); }));
        }
}

TEST_CASE ("Channel_Strip: a rate that filters cannot run at is refused")
{
    for (const double noRate : { 0.0, 15.0, 20.0, -48000.0, 1e300, kInfinity, kNaN })
    {
        CAPTURE (noRate);
        StripUnderTest test;
        StripUnderTest untold;
        test.strip.SetSampleRateOld (noRate);
        CHECK (test.strip.GetTail () == 7 * 44100);
        CHECK (test.run (whiteNoise (2048)) == untold.run (whiteNoise (2048)));
    }
}
