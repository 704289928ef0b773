#include "named_host.h"
#include "plugin_instance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <functional>
#include <malloc.h>
#include <memory>
#include <numeric>
#include <random>
#include <span>
#include <stdlib.h>
#include <string>
#include <vector>

// What an instance costs besides its samples, through the bundle as a host pays for it: to be made, to be kept, to get
// a state, to be morphed; and whether silence costs more than sound. Processor time of this thread, medians of several
// rounds; the figures of docs/performance.md.

namespace
{

using namespace tessaly::host;

constexpr double kSampleRateHz = 48000.0;
constexpr int kBlockSize = 64;
constexpr int kBlocksASecond = 750;
constexpr int kRounds = 11;
constexpr Steinberg::Vst::ParamID kMorph = 20;

double ThreadMicroseconds ()
{
    timespec now{};
    clock_gettime (CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double> (now.tv_sec) * 1e6 + static_cast<double> (now.tv_nsec) * 1e-3;
}

double MedianMicroseconds (const std::function<void ()>& work)
{
    std::vector<double> rounds (kRounds);
    for (double& round : rounds)
    {
        const double begin = ThreadMicroseconds ();
        work ();
        round = ThreadMicroseconds () - begin;
    }
    std::nth_element (rounds.begin (), rounds.begin () + kRounds / 2, rounds.end ());
    return rounds[kRounds / 2];
}

double AllocatedKiB ()
{
    const auto heap = mallinfo2 ();
    return static_cast<double> (heap.uordblks + heap.hblkhd) / 1024;
}

/// Instances, made, given a state, and gone again. What the host library itself allocates for each is among the memory.
void PrintInstances (const Bundle& bundle, NamedHost& host)
{
    const auto state = PluginInstance (bundle, host).SaveState ();
    std::printf ("instances   KiB each   us to make   us to restore   us to end\n");
    for (const std::size_t count : { 10U, 100U, 1000U })
    {
        std::vector<std::unique_ptr<PluginInstance>> instances (count);
        const double before = AllocatedKiB ();
        const double begin = ThreadMicroseconds ();
        for (auto& instance : instances)
            instance = std::make_unique<PluginInstance> (bundle, host);
        const double made = ThreadMicroseconds ();
        const double kept = AllocatedKiB ();
        const double restoring = ThreadMicroseconds ();
        for (auto& instance : instances)
            instance->LoadState (state);
        const double restored = ThreadMicroseconds ();
        instances.clear ();
        const double ended = ThreadMicroseconds ();
        const auto each = [count] (double sum) { return sum / static_cast<double> (count); };
        std::printf ("%9zu %10.1f %12.1f %15.1f %11.1f\n", count, each (kept - before), each (made - begin),
                     each (restored - restoring), each (ended - restored));
    }
}

/// One strip, all stages at work, that is run for a second at a time.
class Strip
{
public:
    Strip (const Bundle& bundle, NamedHost& host, Steinberg::int32 mode)
        : instance (bundle, host)
    {
        instance.Setup (kSampleRateHz, kBlockSize, mode);
        instance.Activate ();
        for (const auto& [id, step] :
             std::array{ std::pair (0U, 160.0), std::pair (3U, 60.0), std::pair (8U, 240.0), std::pair (11U, 210.0),
                         std::pair (13U, 150.0), std::pair (16U, 220.0), std::pair (17U, 170.0) })
            instance.Parameters ().SetNormalized (id, instance.Parameters ().ToNormalized (id, step));
    }

    /// @param beforeBlock  gives the points of each block
    void RunSecond (const std::vector<float>& sound, const std::function<std::span<const ParameterPoint> (int)>& points)
    {
        std::array<float, kBlockSize> out{};
        float* const outputs[]{ out.data () };
        for (int block = 0; block < kBlocksASecond; ++block)
        {
            const float* const inputs[]{ sound.data () + block * kBlockSize };
            instance.Process (
                { .inputs = inputs, .outputs = outputs, .numSamples = kBlockSize, .points = points (block) });
        }
    }

    PluginInstance instance;
};

std::span<const ParameterPoint> NoPoints (int)
{
    return {};
}

/// A second of white noise of peak 0.25, times the shape.
std::vector<float> Noise (const std::function<double (double)>& shapeAtSecond)
{
    std::minstd_rand generator (1);
    std::uniform_real_distribution<double> level (-0.25, 0.25);
    std::vector<float> samples (static_cast<std::size_t> (kBlockSize * kBlocksASecond));
    for (std::size_t i = 0; i < samples.size (); ++i)
        samples[i] = static_cast<float> (level (generator) * shapeAtSecond (static_cast<double> (i) / kSampleRateHz));
    return samples;
}

void PrintSilence (const Bundle& bundle, NamedHost& host, const std::vector<float>& noise)
{
    const auto silence = Noise ([] (double) { return 0.0; });
    const auto decaying = Noise ([] (double second) { return std::exp (-100 * second); }); // beyond the least float
    Strip strip (bundle, host, Steinberg::Vst::kRealtime);
    strip.RunSecond (noise, NoPoints);
    const double sounding = MedianMicroseconds ([&] { strip.RunSecond (noise, NoPoints); });
    const double decay = MedianMicroseconds ([&] { strip.RunSecond (decaying, NoPoints); });
    const double silent = MedianMicroseconds ([&] { strip.RunSecond (silence, NoPoints); });
    std::printf ("\na block of noise: %.2f us; decaying to silence: %.2f of that; silence: %.2f\n",
                 sounding / kBlocksASecond, decay / sounding, silent / sounding);
}

/// The time of each block of an offline render, by its parameter points, which are in the host's queue before the clock
/// starts. A block of other work in between, an interrupt say, would count, so the render is repeated and each block
/// counts with its shortest time.
class BlockTimes
{
public:
    BlockTimes (const Bundle& from, NamedHost& hostContext, const std::vector<float>& sound)
        : bundle (from)
        , host (hostContext)
        , noise (sound)
    {
    }

    /// @param pointsOf  of each block, the same in each repetition
    std::vector<double> Shortest (std::size_t blocks, int repetitions,
                                  const std::function<std::span<const ParameterPoint> (std::size_t)>& pointsOf)
    {
        std::vector<double> shortest (blocks, 1e9);
        for (int repetition = 0; repetition < repetitions; ++repetition)
        {
            Strip strip (bundle, host, Steinberg::Vst::kOffline);
            for (std::size_t i = 0; i < blocks; ++i)
                shortest[i] = std::min (shortest[i], OneBlock (strip, i, pointsOf (i)));
        }
        const double clock = ClockMicroseconds ();
        for (double& each : shortest)
            each -= clock;
        return shortest;
    }

private:
    double OneBlock (Strip& strip, std::size_t block, std::span<const ParameterPoint> points)
    {
        using namespace Steinberg;
        std::array<float, kBlockSize> in{};
        std::array<float, kBlockSize> out{};
        std::copy_n (noise.data () + block % kBlocksASecond * kBlockSize, kBlockSize, in.data ());
        float* inputs[]{ in.data () };
        float* outputs[]{ out.data () };
        Vst::AudioBusBuffers input, output;
        input.numChannels = output.numChannels = 1;
        input.channelBuffers32 = inputs;
        output.channelBuffers32 = outputs;
        inputChanges.clearQueue ();
        outputChanges.clearQueue ();
        int32 ignored = 0;
        for (const ParameterPoint& point : points)
            if (auto* queue = inputChanges.addParameterData (point.id, ignored))
                queue->addPoint (point.sampleOffset, point.value, ignored);
        Vst::ProcessData data;
        data.processMode = Vst::kOffline;
        data.symbolicSampleSize = Vst::kSample32;
        data.numSamples = kBlockSize;
        data.numInputs = data.numOutputs = 1;
        data.inputs = &input;
        data.outputs = &output;
        data.inputParameterChanges = &inputChanges;
        data.outputParameterChanges = &outputChanges;
        const double begin = ThreadMicroseconds ();
        strip.instance.Processor ().process (data);
        return ThreadMicroseconds () - begin;
    }

    /// What a look at the clock itself takes.
    static double ClockMicroseconds ()
    {
        double shortest = 1e9;
        for (int i = 0; i < 10000; ++i)
        {
            const double begin = ThreadMicroseconds ();
            shortest = std::min (shortest, ThreadMicroseconds () - begin);
        }
        return shortest;
    }

    const Bundle& bundle;
    NamedHost& host;
    const std::vector<float>& noise;
    Steinberg::Vst::ParameterChanges inputChanges, outputChanges;
};

/// Half of the blocks set some of the parameters, in any order, to any value; each but once.
std::vector<std::vector<ParameterPoint>> AnyAutomation (std::size_t blocks, std::size_t mostParameters)
{
    constexpr unsigned kParameters = 22;
    std::mt19937 random (1);
    std::uniform_real_distribution<double> anyValue (0.0, 1.0);
    std::vector<std::vector<ParameterPoint>> automation (blocks);
    for (auto& points : automation)
    {
        std::array<unsigned, kParameters> ids{};
        std::iota (ids.begin (), ids.end (), 0U);
        std::shuffle (ids.begin (), ids.end (), random);
        const std::size_t count = random () % 2 == 0 ? 0 : 1 + random () % mostParameters;
        for (const unsigned id : std::span (ids).first (count))
            points.push_back ({ id, anyValue (random), static_cast<int> (random () % kBlockSize) });
    }
    return automation;
}

/// A million blocks for each row.
void PrintWorstBlock (const Bundle& bundle, NamedHost& host, const std::vector<float>& noise)
{
    constexpr std::size_t kBlocks = 100000;
    constexpr int kRepetitions = 10;
    BlockTimes times (bundle, host, noise);
    auto steady = times.Shortest (kBlocks / 10, kRepetitions, [] (std::size_t) { return NoPoints (0); });
    std::sort (steady.begin (), steady.end ());
    const double usual = steady[steady.size () / 2];
    std::printf ("\nblocks of %d under automation, against a steady one of %.2f us\n", kBlockSize, usual);
    std::printf ("parameters set in a block   average   one of a thousand   worst\n");
    for (const std::size_t most : { 1U, 4U, 10U, 22U })
    {
        const auto automation = AnyAutomation (kBlocks, most);
        auto moving = times.Shortest (kBlocks, kRepetitions,
                                      [&] (std::size_t i) { return std::span<const ParameterPoint> (automation[i]); });
        std::sort (moving.begin (), moving.end ());
        std::printf ("%17s %7zu %9.2f %19.2f %7.2f\n", "up to", most,
                     std::accumulate (moving.begin (), moving.end (), 0.0) / kBlocks / usual,
                     moving[kBlocks - kBlocks / 1000] / usual, moving.back () / usual);
    }
}

void PrintMorph (const Bundle& bundle, NamedHost& host, const std::vector<float>& noise)
{
    constexpr int kSteps = 1000;
    Strip byController (bundle, host, Steinberg::Vst::kRealtime);
    byController.RunSecond (noise, NoPoints);
    const double steady = MedianMicroseconds ([&] { byController.RunSecond (noise, NoPoints); });
    const auto parameters = byController.instance.Parameters ();
    const double steps = MedianMicroseconds (
        [&]
        {
            for (int i = 0; i < kSteps; ++i)
                parameters.SetNormalized (kMorph, static_cast<double> (i) / kSteps);
        });
    const auto sweepByController = [&] (int block)
    {
        parameters.SetNormalized (kMorph, static_cast<double> (block) / kBlocksASecond);
        return std::span<const ParameterPoint>{};
    };
    const double controllerSweep = MedianMicroseconds ([&] { byController.RunSecond (noise, sweepByController); });

    Strip byQueue (bundle, host, Steinberg::Vst::kOffline);
    std::array<ParameterPoint, 1> point{ { { kMorph, 0.0 } } };
    const auto sweepByQueue = [&] (int block) -> std::span<const ParameterPoint>
    {
        point[0].value = static_cast<double> (block) / kBlocksASecond;
        return point;
    };
    const double queueSweep = MedianMicroseconds ([&] { byQueue.RunSecond (noise, sweepByQueue); });
    std::printf ("\na step of Morph through the controller: %.2f us, %.1f blocks of %d\n", steps / kSteps,
                 steps / kSteps / (steady / kBlocksASecond), kBlockSize);
    std::printf ("a second with Morph moving every block, against a steady one: %.2f through the controller, %.2f "
                 "through the queue of an offline render\n",
                 controllerSweep / steady, queueSweep / steady);
    std::printf ("share of one core for it: %.4f and %.4f; steady %.4f\n", controllerSweep * 1e-6, queueSweep * 1e-6,
                 steady * 1e-6);
}

} // namespace

int main ()
{
    std::string folder = (std::filesystem::temp_directory_path () / "tessaly-costs-XXXXXX").string ();
    if (mkdtemp (folder.data ()) == nullptr)
        return 1;
    setenv ("XDG_DATA_HOME", folder.c_str (), 1); // no sets of key points
    setenv ("XDG_DATA_DIRS", folder.c_str (), 1);
    {
        NamedHost host ("costs");
        const Bundle bundle (TESSALY_BUNDLE);
        const auto noise = Noise ([] (double) { return 1.0; });
        PrintInstances (bundle, host);
        PrintSilence (bundle, host, noise);
        PrintMorph (bundle, host, noise);
        PrintWorstBlock (bundle, host, noise);
    }
    std::filesystem::remove_all (folder);
    return 0;
}
