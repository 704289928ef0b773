#include "host_window.h"
#include "plugin_instance.h"
#include "virtual_screen.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <ctime>
#include <thread>
#include <vector>

// What an open editor costs the audio thread: the processor time of that thread for blocks of 64, while the editor is
// open, ticks and moves its meters, against the same with the window closed. Turns of both in one run, the median of
// runs of blocks; the figure of docs/performance.md. The blocks go as fast as they can, so that they meet every tick.

namespace
{

using namespace tessaly;
using namespace std::chrono_literals;

constexpr int kBlockSize = 64;
constexpr int kBlocksARun = 32; // the clock of a thread is a system call
constexpr int kTurns = 24;      // half of them open
constexpr auto kTurnTime = 500ms;

double ThreadMicroseconds ()
{
    timespec now{};
    clock_gettime (CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double> (now.tv_sec) * 1e6 + static_cast<double> (now.tv_nsec) * 1e-3;
}

/// The audio thread: noise that swells and sinks, and the meters that come out of it.
class Audio
{
public:
    explicit Audio (host::PluginInstance& of)
        : instance (of)
    {
        for (float& sample : noise)
        {
            seed = seed * 1664525 + 1013904223;
            sample = static_cast<float> (seed) / 4294967296.0f - 0.5f;
        }
    }

    /// Until told to stop. Appends a block's time for each run of blocks, microseconds.
    void Work (const std::stop_token& stop, std::vector<double>& times)
    {
        while (!stop.stop_requested ())
        {
            const double begin = ThreadMicroseconds ();
            for (int i = 0; i < kBlocksARun; ++i)
                Process ();
            times.push_back ((ThreadMicroseconds () - begin) / kBlocksARun);
        }
    }

    /// What a host would hand on to the controller by now.
    void TellMeters () const
    {
        for (std::size_t i = 0; i < levels.size (); ++i)
            if (const auto id = ids[i].load (); id != Steinberg::Vst::kNoParamId)
                instance.Parameters ().SetNormalized (id, levels[i].load ());
    }

private:
    void Process ()
    {
        const float* in = noise.data () + blocks++ % 100 * kBlockSize;
        float* const result = out.data ();
        instance.Process ({ { &in, 1 }, { &result, 1 }, kBlockSize, {} }, &meters);
        for (std::size_t i = 0; i < std::min (meters.size (), levels.size ()); ++i)
        {
            levels[i] = meters[i].value;
            ids[i] = meters[i].id;
        }
    }

    host::PluginInstance& instance; // not owned: main's
    std::array<float, 100 * kBlockSize> noise{};
    std::array<float, kBlockSize> out{};
    std::vector<host::ParameterPoint> meters;
    std::array<std::atomic<double>, 2> levels{};
    std::array<std::atomic<Steinberg::Vst::ParamID>, 2> ids{ Steinberg::Vst::kNoParamId, Steinberg::Vst::kNoParamId };
    std::uint32_t seed = 1;
    std::size_t blocks = 0;
};

double MedianOf (std::vector<double>& times)
{
    const auto middle = times.begin () + static_cast<std::ptrdiff_t> (times.size () / 2);
    std::nth_element (times.begin (), middle, times.end ());
    return *middle;
}

} // namespace

int main ()
{
    const test::VirtualScreen screen;
    host::PollRunLoop loop;
    host::NamedHost context ("panel_audio", &loop);
    host::PluginInstance instance (host::Bundle (TESSALY_BUNDLE), context);
    instance.Setup (48000.0, kBlockSize, Steinberg::Vst::kRealtime);
    instance.Activate ();
    Audio audio (instance);
    std::array<std::vector<double>, 2> times; // closed, open
    for (std::size_t turn = 0; turn < kTurns; ++turn)
    {
        host::HostWindow window (loop);
        if (turn % 2 != 0)
            window.Open (instance.Controller ());
        loop.RunFor (100ms);
        std::jthread thread ([&] (const std::stop_token& stop) { audio.Work (stop, times[turn % 2]); });
        for (const auto end = std::chrono::steady_clock::now () + kTurnTime; std::chrono::steady_clock::now () < end;)
        {
            loop.RunFor (10ms);
            audio.TellMeters ();
        }
        thread.request_stop ();
        thread.join ();
    }
    const double closed = MedianOf (times[0]);
    const double open = MedianOf (times[1]);
    std::printf ("a block of %d: window closed %.3f us, open %.3f us, ratio %.3f\n", kBlockSize, closed, open,
                 open / closed);
    return 0;
}
