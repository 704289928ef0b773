#include "named_host.h"
#include "plugin_instance.h"

#include <benchmark/benchmark.h>

#include <array>
#include <random>
#include <vector>

// The price of a sample as a host pays it: through the bundle's process call, meters and queues included.

namespace
{

using namespace tessaly::host;

constexpr double kSampleRateHz = 48000.0;
constexpr int kBlockSize = 64;
constexpr int kBlocksOfNoise = 256;
constexpr double kNoisePeak = 0.25;

struct Step
{
    Steinberg::Vst::ParamID id;
    double step;
};

/// Every stage at work: the compressor far over its knee, its side chain and all three bands off zero.
constexpr std::array kAllStages{
    Step{ 0, 160 },  // Drive: threshold at -32 dB
    Step{ 3, 60 },   // Ratio: 4
    Step{ 8, 240 },  // Side Chain G: +6 dB
    Step{ 11, 210 }, // High G: +3 dB
    Step{ 13, 150 }, // Mid G: -3 dB
    Step{ 16, 220 }, // Low G: +4 dB
    Step{ 17, 170 }, // Total Gain: -1 dB
};

std::vector<float> WhiteNoise ()
{
    std::minstd_rand generator (1);
    std::uniform_real_distribution<float> noise (-static_cast<float> (kNoisePeak), static_cast<float> (kNoisePeak));
    std::vector<float> samples (static_cast<std::size_t> (kBlockSize * kBlocksOfNoise));
    for (float& sample : samples)
        sample = noise (generator);
    return samples;
}

void BlockThroughTheBundle (benchmark::State& state)
{
    NamedHost host ("bundle_bench");
    const Bundle bundle (TESSALY_BUNDLE);
    PluginInstance strip (bundle, host);
    strip.Setup (kSampleRateHz, kBlockSize, Steinberg::Vst::kRealtime);
    strip.Activate ();
    for (const auto& [id, step] : kAllStages)
        strip.Parameters ().SetNormalized (id, strip.Parameters ().ToNormalized (id, step));

    const std::vector<float> noise = WhiteNoise ();
    std::array<float, kBlockSize> out{};
    float* const outputs[]{ out.data () };
    std::size_t position = 0;
    for ([[maybe_unused]] auto iteration : state)
    {
        const float* const inputs[]{ noise.data () + position };
        strip.Process ({ .inputs = inputs, .outputs = outputs, .numSamples = kBlockSize, .points = {} });
        benchmark::DoNotOptimize (out);
        position = (position + kBlockSize) % noise.size ();
    }
    // A rate turned over: the seconds, shown as nanoseconds, that one sample takes.
    state.counters["per_sample"] = benchmark::Counter (static_cast<double> (state.iterations ()) * kBlockSize,
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

} // namespace

BENCHMARK (BlockThroughTheBundle);
