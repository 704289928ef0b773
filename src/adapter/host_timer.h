#pragma once

#include "pluginterfaces/base/funknown.h"
#include <cstdint>
#include <functional>
#include <memory>

namespace tessaly
{

/// A timer on the host's own run loop, on the host's user-interface thread. A host without a run loop has none, and
/// one that does not answer its registration has none either: `Start` then returns false and nothing ever fires.
class HostTimer
{
public:
    HostTimer ();
    ~HostTimer ();
    HostTimer (const HostTimer&) = delete;
    HostTimer& operator= (const HostTimer&) = delete;

    /// Looks for a run loop in `context`, then in `fallbackContext`; both are the host's and may be null.
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
