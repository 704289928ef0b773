#pragma once

#include "acts.h"
#include "bundle.h"
#include "hand_run_loop.h"
#include "key_point_files.h"
#include "memory_watch.h"
#include "named_host.h"
#include "strip_life.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace tessaly::soak
{

/// A host gone wild: instances of the bundle that come, live side by side and go, for as many steps as wanted. Every
/// so often all of them end and the bundle is unloaded; the memory in use is compared then.
class SoakRun
{
public:
    /// @param keyPointFiles  not owned: the caller's, outlives the run
    /// @param atOnce         instances that may live at the same time, at least 1
    SoakRun (std::filesystem::path bundlePath, KeyPointFiles& keyPointFiles, std::uint64_t seed, std::size_t atOnce);

    /// @throws Fault, or the host library's error
    void Step ();

    /// Ends all and looks at the memory. @throws Fault
    void End ();

    const Tally& Done () const { return tally; }

private:
    void BeginInstance ();
    void EndInstance ();

    std::filesystem::path path;
    Chance chance;
    std::size_t mostInstances;
    Tally tally;
    KeyPointFiles& files; // not owned: the caller's
    HandRunLoop loop;
    host::NamedHost hostWithLoop{ "soak", &loop };
    host::NamedHost hostWithoutLoop{ "soak" };
    Scene scene{ chance, tally, loop, {} };
    MemoryWatch memory;
    std::optional<host::Bundle> bundle;
    std::vector<std::unique_ptr<StripLife>> lives;
};

} // namespace tessaly::soak
