#include "event.h"
#include "panel_stage.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <memory>
#include <numbers>
#include <vector>

// What the open panel costs the user-interface thread: to open, to rest, to move its meters, to be dragged, to be
// painted whole; and what its images take in memory. Processor time of this thread, medians; the figures of
// docs/performance.md. Drawing ends in the panel's own surface: what the window system does with it comes on top.

namespace
{

using namespace tessaly;
using stage::PanelStage;

constexpr int kRounds = 201;

double ThreadMicroseconds ()
{
    timespec now{};
    clock_gettime (CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double> (now.tv_sec) * 1e6 + static_cast<double> (now.tv_nsec) * 1e-3;
}

double Microseconds (const std::function<void ()>& work)
{
    const double begin = ThreadMicroseconds ();
    work ();
    return ThreadMicroseconds () - begin;
}

double MedianOf (const std::function<void ()>& prepare, const std::function<void ()>& work)
{
    std::vector<double> rounds (kRounds);
    for (double& round : rounds)
    {
        prepare ();
        round = Microseconds (work);
    }
    std::nth_element (rounds.begin (), rounds.begin () + kRounds / 2, rounds.end ());
    return rounds[kRounds / 2];
}

double HeapMiB ()
{
    const auto info = mallinfo2 ();
    return static_cast<double> (info.uordblks + info.hblkhd) / (1024.0 * 1024.0);
}

void Report (const char* what, double microseconds, double limit)
{
    std::printf ("  %-34s %9.1f us   limit %8.0f\n", what, microseconds, limit);
}

void Measure (double scale)
{
    std::printf ("scale %.2f\n", scale);
    const double before = HeapMiB ();
    std::unique_ptr<PanelStage> panel;
    Report ("opening, nothing loaded", Microseconds ([&] { panel = std::make_unique<PanelStage> (scale); }), 60000);
    const double first = HeapMiB ();
    std::unique_ptr<PanelStage> second;
    Report ("opening while another is open", Microseconds ([&] { second = std::make_unique<PanelStage> (scale); }),
            20000);
    const double both = HeapMiB ();
    second.reset ();

    auto& window = panel->Window ();
    const auto nothing = [] {};
    const auto tick = [&] { window.Settle (); };
    window.Wait (3000); // what opening has set moving comes to rest
    Report ("tick, nothing changed", MedianOf (nothing, tick), 20);

    float level = 0.0f;
    const auto moveMeters = [&]
    {
        level = level > 0.9f ? 0.1f : level + 0.13f;
        panel->SetLevel (0, level);
        panel->SetLevel (1, 1.0f - level);
    };
    Report ("tick, meters moving", MedianOf (moveMeters, tick), scale == 1.0 ? 100 : 0);

    const auto touchAll = [&] { panel->Editor ().Invalidate (true); };
    Report ("full repaint", MedianOf (touchAll, [&] { window.Paint (); }), scale == 1.0 ? 2000 : 5000);

    const auto onCircle = [] (double degrees) // around the dial's centre, clockwise from straight below
    {
        const double angle = degrees * std::numbers::pi / 180.0;
        return ZPoint{ 280 - static_cast<std::int32_t> (38.0 * std::sin (angle)),
                       254 + static_cast<std::int32_t> (38.0 * std::cos (angle)) };
    };
    double degrees = 70.0;
    window.Point (onCircle (degrees));
    window.Press (kLeftButton, 0);
    window.Wait (90);
    double turn = 4.0;
    const auto drag = [&]
    {
        if (degrees > 285.0 || degrees < 70.0)
            turn = -turn;
        degrees += turn;
        window.Point (onCircle (degrees));
    };
    Report ("tick of a \"Morph\" drag", MedianOf (nothing, drag), scale == 1.0 ? 4000 : 0);
    window.Release ();
    std::printf ("  (the drag ended at \"Morph\" %d)\n", panel->Step (20));
    std::printf ("  heap: first editor %.1f MiB, a second one %.1f MiB, after a drag %.1f MiB\n", first - before,
                 both - first, HeapMiB () - before);
}

} // namespace

int main ()
{
    for (const double scale : { 1.0, 2.0 })
        Measure (scale);
    return 0;
}
