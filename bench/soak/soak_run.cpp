#include "soak_run.h"

#include "fault.h"

#include <string>
#include <utility>

namespace tessaly::soak
{

namespace
{

// One in so many steps
constexpr std::size_t kBegins = 25;
constexpr std::size_t kEnds = 60;
constexpr std::size_t kChangesFiles = 40;
constexpr std::size_t kUnloads = 700;

} // namespace

SoakRun::SoakRun (std::filesystem::path bundlePath, KeyPointFiles& keyPointFiles, std::uint64_t seed,
                  std::size_t atOnce)
    : path (std::move (bundlePath))
    , chance (seed)
    , mostInstances (atOnce)
    , files (keyPointFiles)
{
}

void SoakRun::Step ()
{
    if (chance.OneIn (kUnloads))
        End ();
    if (chance.OneIn (kChangesFiles))
        files.Change (chance);
    if (lives.size () > 1 && chance.OneIn (kEnds))
        EndInstance ();
    if (lives.empty () || (lives.size () < mostInstances && chance.OneIn (kBegins)))
        BeginInstance ();
    Act (*chance.Pick (lives), scene);
    ++tally.steps;
}

void SoakRun::BeginInstance ()
{
    if (!bundle)
    {
        bundle.emplace (path);
        ++tally.loads;
    }
    auto& host = chance.OneIn (2) ? hostWithLoop : hostWithoutLoop;
    lives.push_back (std::make_unique<StripLife> (*bundle, host, chance, tally));
}

void SoakRun::EndInstance ()
{
    std::swap (lives[chance.Below (lives.size ())], lives.back ());
    lives.back ()->End (chance);
    lives.pop_back ();
}

void SoakRun::End ()
{
    while (!lives.empty ())
        EndInstance ();
    if (bundle)
        bundle->Factory ().setHostContext (nullptr);
    bundle.reset ();
    if (loop.TimerCount () != 0)
        throw Fault ("with all instances ended, " + std::to_string (loop.TimerCount ()) + " timers still run");
    std::exchange (scene.saved, {});
    memory.Compare (tally.loads);
}

} // namespace tessaly::soak
