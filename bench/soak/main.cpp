#include "soak_run.h"

#include <chrono>
#include <cinttypes>
#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>

// Leads many instances of the bundle through all that hosts do and some of what they should not, at random, and watches
// what must hold whatever comes. The same seed with --steps is the same run again. Ends with 1 at the first fault.

namespace
{

using namespace tessaly::soak;

struct Options
{
    std::string bundle = TESSALY_BUNDLE;
    std::uint64_t seed = std::random_device{}();
    std::uint64_t steps = 0; ///< 0: as many as there is time for
    double seconds = 10.0;
    std::size_t instances = 8;
};

void RunSteps (SoakRun& run, const Options& options)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now () + std::chrono::duration<double> (options.seconds);
    while (options.steps > 0 ? run.Done ().steps < options.steps : Clock::now () < end)
        run.Step ();
    run.End ();
}

void PrintSummary (const Tally& done)
{
    std::printf ("soak: clean: %" PRIu64 " steps, %" PRIu64 " instances, %" PRIu64 " blocks, %" PRIu64
                 " samples, %" PRIu64 " edits, %" PRIu64 " states, %" PRIu64 " loads of the bundle\n",
                 done.steps, done.instances, done.blocks, done.samples, done.edits, done.states, done.loads);
}

} // namespace

int main (int argc, char** argv)
{
    Options options;
    CLI::App app ("Leads instances of the bundle through random lives and watches what must always hold.");
    app.add_option ("BUNDLE", options.bundle, "The bundle, instead of the one built here");
    app.add_option ("--seed", options.seed, "Of all random choices; without, another one each time");
    auto* steps = app.add_option ("--steps", options.steps, "How long; the same steps again with the same seed");
    steps->check (CLI::PositiveNumber);
    app.add_option ("--seconds", options.seconds, "How long, by the clock; 10 unless told")->excludes (steps);
    app.add_option ("--instances", options.instances, "That live at the same time, at most; 8 unless told")
        ->check (CLI::Range (1, 1000));
    CLI11_PARSE (app, argc, argv);

    std::printf ("soak: seed %" PRIu64 "\n", options.seed);
    std::fflush (stdout);
    std::optional<KeyPointFiles> files (std::in_place);
    SoakRun run (options.bundle, *files, options.seed, options.instances);
    try
    {
        RunSteps (run, options);
    }
    catch (const std::exception& fault)
    {
        std::fprintf (stderr, "soak: seed %" PRIu64 ", step %" PRIu64 ": %s\n", options.seed, run.Done ().steps,
                      fault.what ());
        files.reset ();
        std::_Exit (1); // instances are in the midst of their lives: what they leave behind would hide the message
    }
    PrintSummary (run.Done ());
    return 0;
}
