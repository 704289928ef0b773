#include "host_error.h"
#include "host_window.h"
#include "plugin_instance.h"
#include "virtual_screen.h"

#include <array>
#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <sstream>

// The load of one open editor, on an X server without a screen: of the process, and of the server. Each bundle stands
// for so many seconds at rest, then with noise that swells and sinks every second, so that its meters move. What the
// noise alone costs, with the window closed, is measured too and taken off. Loads are per cent of one core.
//     panel_window --seconds 20 OURS.vst3 /usr/lib/vst3/ZamComp.vst3

namespace
{

using namespace tessaly;
using namespace std::chrono_literals;

constexpr double kSampleRateHz = 48000.0;
constexpr int kBlockSize = 480;
constexpr auto kBlockTime = 10ms;

double SecondsOfClock (clockid_t clock)
{
    timespec time{};
    clock_gettime (clock, &time);
    return static_cast<double> (time.tv_sec) + 1e-9 * static_cast<double> (time.tv_nsec);
}

double SecondsOfProcess (pid_t id)
{
    clockid_t clock{};
    return clock_getcpuclockid (id, &clock) == 0 ? SecondsOfClock (clock) : 0.0;
}

/// Per cent of one core.
struct Load
{
    double process;
    double server;
};

class Guest
{
public:
    Guest (const std::string& path, host::NamedHost& context, host::PollRunLoop& hostLoop, pid_t xServer)
        : loop (hostLoop)
        , server (xServer)
        , instance (host::Bundle (path), context)
    {
        instance.Setup (kSampleRateHz, kBlockSize, Steinberg::Vst::kRealtime);
        instance.Activate ();
        inputs.fill (noise.data ());
        outputs.fill (out.data ());
    }

    Load Measure (bool sounding, std::chrono::seconds time)
    {
        using Clock = host::PollRunLoop::Clock;
        const double process = SecondsOfClock (CLOCK_PROCESS_CPUTIME_ID);
        const double served = SecondsOfProcess (server);
        const auto start = Clock::now ();
        for (auto next = start; next < start + time; next += kBlockTime)
        {
            if (sounding)
                Process ();
            while (Clock::now () < next)
                loop.RunOnce (std::chrono::ceil<std::chrono::milliseconds> (next - Clock::now ()));
        }
        const double part = 100.0 / static_cast<double> (time.count ());
        return { part * (SecondsOfClock (CLOCK_PROCESS_CPUTIME_ID) - process),
                 part * (SecondsOfProcess (server) - served) };
    }

    Steinberg::Vst::IEditController& Controller () const { return instance.Controller (); }

private:
    /// Hands the meters on to the controller, as hosts do.
    void Process ()
    {
        const double level = 0.5 - 0.5 * std::cos (2.0 * M_PI * static_cast<double> (blocks++ % 100) / 100.0);
        for (float& sample : noise)
        {
            seed = seed * 1664525 + 1013904223;
            sample = static_cast<float> (level * (static_cast<double> (seed) / 2147483648.0 - 1.0));
        }
        instance.Process ({ inputs, outputs, kBlockSize, {} }, &meters);
        for (const auto& meter : meters)
            instance.Parameters ().SetNormalized (meter.id, meter.value);
    }

    host::PollRunLoop& loop; // not owned: main's
    pid_t server;
    host::PluginInstance instance;
    std::array<float, kBlockSize> noise{};
    std::array<float, kBlockSize> out{};
    std::array<const float*, 8> inputs{};
    std::array<float*, 8> outputs{};
    std::vector<host::ParameterPoint> meters;
    std::uint32_t seed = 1;
    int blocks = 0;
};

void Run (const std::string& path, std::chrono::seconds time, pid_t server)
{
    host::PollRunLoop loop;
    host::NamedHost context ("panel_window", &loop);
    Guest guest (path, context, loop, server);
    const Load closed = guest.Measure (true, time);
    host::HostWindow window (loop);
    window.Open (guest.Controller ());
    guest.Measure (false, 2s); // opening is not what is measured
    const Load rest = guest.Measure (false, time);
    const Load moving = guest.Measure (true, time);
    std::printf ("%-24s %4dx%-4d at rest %5.2f %% (X server %5.2f %%), meters moving %5.2f %% (X server %5.2f %%)\n",
                 std::filesystem::path (path).stem ().c_str (), window.Width (), window.Height (), rest.process,
                 rest.server, moving.process - closed.process, moving.server);
    std::fflush (stdout);
}

} // namespace

int main (int argc, char** argv)
{
    CLI::App options ("The load of open editors' windows");
    int seconds = 20;
    std::vector<std::string> bundles;
    options.add_option ("--seconds", seconds, "for each of the three states")->check (CLI::Range (1, 3600));
    options.add_option ("bundles", bundles, "VST 3 bundles")->required ();
    CLI11_PARSE (options, argc, argv);
    const test::VirtualScreen screen;
    for (const auto& bundle : bundles)
        try
        {
            Run (bundle, std::chrono::seconds (seconds), screen.Id ());
        }
        catch (const host::HostError& error)
        {
            std::printf ("%s: %s\n", bundle.c_str (), error.what ());
        }
}
