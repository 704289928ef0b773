#include "channel_strip.h"

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

void startStrip (Channel_Strip& strip)
{
    strip.SetSampleRateOld (kSampleRateHz);
    for (const auto& [parameter, step] : kAllStages)
        strip.SetParameterOld (static_cast<std::int32_t> (parameter), static_cast<float> (step));
}

void runStrip (benchmark::State& state, Channel_Strip& strip)
{
    runBlocks (state,
               [&] (float* in, float* out) { strip.Process (&in, &out, static_cast<std::int32_t> (kBlockSize)); });
}

void WholeStrip (benchmark::State& state)
{
    Channel_Strip strip (nullptr);
    startStrip (strip);
    runStrip (state, strip);
}

void CompressorAlone (benchmark::State& state)
{
    Channel_Strip strip (nullptr);
    startStrip (strip);
    strip.SetParameterOld (static_cast<std::int32_t> (StripParameter::equalizerBypass), 1.0F);
    runStrip (state, strip);
}

void ThreeBands (benchmark::State& state)
{
    Channel_Strip strip (nullptr);
    startStrip (strip);
    strip.SetParameterOld (static_cast<std::int32_t> (StripParameter::compressorBypass), 1.0F);
    runStrip (state, strip);
}

/// Every filter designed anew as soon as its crossfade has ended, so that one follows the other in all four.
void WholeStripFading (benchmark::State& state)
{
    Channel_Strip strip (nullptr);
    startStrip (strip);
    runBlocks (state,
               [&] (float* in, float* out)
               {
                   for (const auto& [parameter, step] : kAllStages)
                       strip.SetParameterOld (static_cast<std::int32_t> (parameter), static_cast<float> (step));
                   strip.Process (&in, &out, static_cast<std::int32_t> (kBlockSize));
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
BENCHMARK (WholeStripFading);
BENCHMARK (BothMeters);

} // namespace

BENCHMARK_MAIN ();
