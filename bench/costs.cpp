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
    }
    std::filesystem::remove_all (folder);
    return 0;
}
