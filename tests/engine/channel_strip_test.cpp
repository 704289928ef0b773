#include "channel_strip.h"

#include "measure.h"
#include "strip_under_test.h"
#include "value_scales.h"
#include <algorithm>
#include <atomic>
#include <doctest/doctest.h>
#include <limits>
#include <random>
#include <thread>

using namespace tessaly;
using doctest::Approx;

namespace
{

using Meters = std::array<float, 2>;

std::vector<float> whiteNoise (std::size_t count)
{
    std::vector<float> samples (count);
    std::minstd_rand random;
    for (float& sample : samples)
        sample = 0.25F * (float (random ()) / float (std::minstd_rand::max ()) - 0.5F);
    return samples;
}

/// Every parameter but the bypasses to another step each round.
void setAll (Channel_Strip& strip, int round)
{
    for (std::int32_t index = 0; index <= std::int32_t (StripParameter::totalGain); ++index)
        strip.SetParameterOld (index, float (40 + (round * 7 + index) % 13));
}

} // namespace

TEST_CASE ("Channel_Strip: two instances sound equal bit by bit, however the blocks are cut")
{
    const std::vector<float> input = whiteNoise (20000);
    StripUnderTest wholeBlocks;
    StripUnderTest cutBlocks;
    setAll (wholeBlocks.strip, 0);
    setAll (cutBlocks.strip, 0);
    std::vector<float> joined;
    for (std::ptrdiff_t size = 0; joined.size () < input.size (); size = (size + 7) % 301)
    {
        const auto begin = input.begin () + std::ptrdiff_t (joined.size ());
        const std::vector<float> part = cutBlocks.run ({ begin, begin + std::min (size, input.end () - begin) });
        joined.insert (joined.end (), part.begin (), part.end ());
    }
    CHECK (joined == wholeBlocks.run (input));
}

TEST_CASE ("Channel_Strip: a fresh strip fades in by its makeup, which stands still while the compressor is bypassed")
{
    StripUnderTest test;
    const std::vector<float> fading = test.run (std::vector<float> (441, 0.5F));
    CHECK (std::abs (fading.front ()) < 0.01F);
    CHECK (fading.back () == Approx (0.5 * (1 - std::exp (-1.0))).epsilon (0.001));
    test.set (StripParameter::compressorBypass, 1);
    CHECK (test.run (std::vector<float> (1000, 0.5F)).back () == 0.5F);
    test.set (StripParameter::compressorBypass, 0);
    CHECK (test.run ({ 0.5F })[0] == Approx (fading.back ()).epsilon (0.01));
    CHECK (test.run (std::vector<float> (20000, 0.5F)).back () == 0.5F); // under the threshold
}

TEST_CASE ("Channel_Strip: the sound of the equalizer is the response that is drawn, after a resume at once")
{
    StripUnderTest test;
    setAll (test.strip, 1);
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

TEST_CASE ("Channel_Strip: bypass reaches the dry signal, total gain its target, and an equalizer in bypass is flat")
{
    StripUnderTest test;
    const std::vector<float> input = whiteNoise (20000);
    test.set (StripParameter::compressorBypass, 1);
    test.set (StripParameter::lowGain, 360);
    test.set (StripParameter::equalizerBypass, 1);
    test.set (StripParameter::totalGain, 240); // 6 dB
    CHECK (test.run ({ 0.1F })[0] < 0.11F);    // glides
    const Approx louder = Approx (input.back () * fromDb (6)).epsilon (1e-6);
    CHECK (test.run (input).back () == louder);
    test.set (StripParameter::bypass, 0.3F); // anything but 0 is on
    CHECK (test.run (input).back () == input.back ());
    test.set (StripParameter::bypass, 0.0F);
    CHECK (test.run (input).back () == louder);
}

TEST_CASE ("Channel_Strip: the meters show reduction and output after every block, also without samples or channels")
{
    StripUnderTest test;
    float* none = nullptr;
    test.strip.Process (&none, &none, 64);
    CHECK (test.published == Meters{ 0.0F, 0.0F });

    test.set (StripParameter::knee, 2);
    test.set (StripParameter::drive, 60); // -12 dB, ratio 3000, makeup 6 dB
    std::vector<float> square (120000);
    for (std::size_t i = 0; i < square.size (); ++i)
        square[i] = i % 2 == 0 ? 0.999F : -0.999F;
    test.run (square);
    const Meters shown = test.published;
    CHECK (shown[0] == float (1 - 9.0 / 36));
    test.run ({});
    test.strip.Process (nullptr, nullptr, 64);
    CHECK (test.published == shown);
    CHECK (test.run ({ 1.0F })[0] == Approx (fromDb (-6)).epsilon (0.002)); // went on as if nothing had been

    test.strip.SuspendOld ();
    CHECK (test.direct == Meters{ 0.0F, 0.0F });
    test.set (StripParameter::compressorBypass, 1);
    test.set (StripParameter::bypass, 1);
    test.run (std::vector<float> (64, -0.5F));
    CHECK (test.published == Meters{ 0.0F, 0.0F });
}

TEST_CASE ("Channel_Strip: offline blocks apply their queue first, real-time blocks ignore it, doubles are refused")
{
    StripUnderTest test;
    float sample = 0.5F;
    float* channel = &sample;
    ZParameterQueue queue;
    queue.Add (63, std::uint32_t (StripParameter::lowGain), 1.0F);
    ZAudioBlock block;
    block.inputs = block.outputs = &channel;
    block.numInputChannels = block.numOutputChannels = block.numSamples = 1;
    block.silenceFlags = 1;
    block.parameterQueue = &queue;

    block.symbolicSampleSize = kFloat64;
    CHECK (test.strip.ProcessBlock (block) == kFailed);
    CHECK (sample == 0.5F);
    CHECK (block.silenceFlags == 1);
    block.symbolicSampleSize = kFloat32;
    CHECK (test.strip.ProcessBlockBypassed (block) == kOk);
    CHECK (sample < 0.01F); // ran
    CHECK (block.silenceFlags == 0);
    CHECK (test.strip.bandGain (1) == 0.0);
    block.processMode = kOffline;
    CHECK (test.strip.ProcessBlock (block) == kOk);
    CHECK (test.strip.bandGain (1) == gainDb (1));
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

TEST_CASE ("Channel_Strip: settings and graphs on other threads disturb no sample, and the last settings hold")
{
    constexpr int kRounds = 300;
    StripUnderTest test;
    std::atomic<bool> done = false;
    std::atomic<int> wrong = 0;
    std::thread editor (
        [&]
        {
            for (int round = 0; round <= kRounds; ++round)
                setAll (test.strip, round);
            done = true;
        });
    std::thread graph (
        [&]
        {
            while (!done)
                wrong += !std::isfinite (test.strip.eqResponseDb (1000, 0) + test.strip.compressorCurveDb (-10) +
                                         test.strip.bandGain (1) + test.strip.bandFrequency (2));
        });
    const std::vector<float> input = whiteNoise (64);
    while (!done)
        for (const float sample : test.run (input))
            wrong += !(std::abs (sample) < 50.0F);
    editor.join ();
    graph.join ();
    CHECK (wrong == 0);

    StripUnderTest fresh;
    setAll (fresh.strip, kRounds);
    CHECK (test.strip.eqResponseDb (500, 0) == fresh.strip.eqResponseDb (500, 0));
    CHECK (test.strip.compressorCurveDb (-10) == fresh.strip.compressorCurveDb (-10));
}
