#pragma once

#include "pluginterfaces/base/funknown.h"
#include <cstdint>
#include <functional>
#include <memory>

namespace tessaly
{

/// A timer on the host's user-interface thread. On Linux it is one of the host's run loop; a host without a run loop, or
/// one that refuses, has none: `Start` then returns false and nothing ever fires. On Windows it belongs to the thread
/// that calls `Start`, and fires from that thread's message loop.
class HostTimer
{
public:
    HostTimer ();
    ~HostTimer ();
    HostTimer (const HostTimer&) = delete;
    HostTimer& operator= (const HostTimer&) = delete;

    /// Where it is the host's, it is looked for in `context`, then in `fallbackContext`; both may be null.
    /// @param intervalMs  milliseconds between calls of `onTimer`, which must not start or stop this timer
    /// @return true if the timer runs
    bool Start (Steinberg::FUnknown* context, Steinberg::FUnknown* fallbackContext, std::uint64_t intervalMs,
                std::function<void ()> onTimer);
    void Stop (); ///< any thread; when it has returned, `onTimer` is not running, or only around this call

private:
    struct Registration;
    std::unique_ptr<Registration> registration; // null while the timer does not run
};

} // namespace tessaly
