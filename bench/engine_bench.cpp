#include "channel_strip.h"
#include "equalizer_design.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

// The price of a sample in the strip and in its stages, at 48 kHz in blocks of 64, on white noise of peak 0.25. The
// counter `per_sample` is the time of one sample.

namespace
{

using namespace tessaly;

constexpr double kSampleRateHz = 48000;
constexpr std::size_t kBlockSize = 64;
constexpr std::size_t kNoiseLength = 64 * kBlockSize;

/// The compressor far over its knee, its side chain and all three bands off zero.
constexpr std::array<std::pair<StripParameter, std::int32_t>, 7> kAllStages{ {
    { StripParameter::drive, 160 },         // threshold at -32 dB
    { StripParameter::ratio, 60 },          // 4:1
    { StripParameter::sideChainGain, 240 }, // 6 dB
    { StripParameter::highGain, 210 },      // 3 dB
    { StripParameter::midGain, 150 },       // -3 dB
    { StripParameter::lowGain, 220 },       // 4 dB
    { StripParameter::totalGain, 170 },     // -1 dB
} };

const std::vector<float>& whiteNoise ()
{
    static const std::vector<float> noise = []
    {
        std::minstd_rand generator (1);
        std::uniform_real_distribution<float> distribution (-0.25F, 0.25F);
        std::vector<float> samples (kNoiseLength);
        for (float& sample : samples)
            sample = distribution (generator);
        return samples;
    }();
    return noise;
}

/// One iteration is one block; `runBlock (in, out)` gets the next stretch of noise each time.
template <typename RunBlock>
void runBlocks (benchmark::State& state, RunBlock runBlock)
{
    std::vector<float> in = whiteNoise ();
    std::array<float, kBlockSize> out{};
    std::size_t offset = 0;
    for ([[maybe_unused]] auto iteration : state)
    {
        runBlock (in.data () + offset, out.data ());
        benchmark::DoNotOptimize (out);
        offset = (offset + kBlockSize) % kNoiseLength;
    }
    // A rate turned over: the seconds, shown as nanoseconds, that one sample takes.
    state.counters["per_sample"] = benchmark::Counter (static_cast<double> (state.iterations ()) * kBlockSize,
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// A stage that works in place on doubles.
template <typename Stage>
void runStage (benchmark::State& state, Stage& stage)
{
    runBlocks (state,
               [&] (const float* in, float* out)
               {
                   std::array<double, kBlockSize> samples;
                   std::copy_n (in, kBlockSize, samples.begin ());
                   stage.process (samples.data (), kBlockSize);
                   std::transform (samples.begin (), samples.end (), out,
                                   [] (double x) { return static_cast<float> (x); });
               });
}

template <typename Stage>
void startStage (Stage& stage)
{
    stage.startUp (kSampleRateHz);
    for (const auto& [parameter, step] : kAllStages)
        stage.setParameter (parameter, step);
}

void WholeStrip (benchmark::State& state)
{
    Channel_Strip strip (nullptr);
    strip.SetSampleRateOld (kSampleRateHz);
    for (const auto& [parameter, step] : kAllStages)
        strip.SetParameterOld (static_cast<std::int32_t> (parameter), static_cast<float> (step));
    runBlocks (state,
               [&] (float* in, float* out) { strip.Process (&in, &out, static_cast<std::int32_t> (kBlockSize)); });
}

void CompressorAlone (benchmark::State& state)
{
    Compressor compressor;
    startStage (compressor);
    runStage (state, compressor);
}

void ThreeBands (benchmark::State& state)
{
    Equalizer equalizer;
    startStage (equalizer);
    runStage (state, equalizer);
}

void OneBandSteady (benchmark::State& state)
{
    BlendBiquad band;
    band.setTarget (designPeaking (kSampleRateHz, 1000, 6, 1, 0.70, 18));
    band.startUp (kSampleRateHz);
    runStage (state, band);
}

/// A design a block, so that one crossfade follows the other; its own time is a few hundredths of the whole.
void OneBandFading (benchmark::State& state)
{
    const BiquadCoefs peak = designPeaking (kSampleRateHz, 1000, 6, 1, 0.70, 18);
    BlendBiquad band;
    band.setTarget (peak);
    band.startUp (kSampleRateHz);
    runBlocks (state,
               [&] (const float* in, float* out)
               {
                   band.setTarget (peak);
                   std::array<double, kBlockSize> samples;
                   std::copy_n (in, kBlockSize, samples.begin ());
                   band.process (samples.data (), kBlockSize);
                   std::transform (samples.begin (), samples.end (), out,
                                   [] (double x) { return static_cast<float> (x); });
               });
}

void BothMeters (benchmark::State& state)
{
    std::array<StripMeter, 2> meters;
    runBlocks (state,
               [&] (const float* in, float* out)
               {
                   for (std::size_t which = 0; which < meters.size (); ++which)
                   {
                       meters[which].beginBlock (kBlockSize);
                       for (std::size_t i = 0; i < kBlockSize; ++i)
                           meters[which].feedHighest (std::max (0.0, static_cast<double> (in[i])), 1);
                       out[which] = static_cast<float> (meters[which].reading ());
                   }
               });
}

BENCHMARK (WholeStrip);
BENCHMARK (CompressorAlone);
BENCHMARK (ThreeBands);
BENCHMARK (OneBandSteady);
BENCHMARK (OneBandFading);
BENCHMARK (BothMeters);

} // namespace

BENCHMARK_MAIN ();
