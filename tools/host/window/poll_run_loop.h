#pragma once

#include "pluginterfaces/base/smartpointer.h"
#include "pluginterfaces/gui/iplugview.h"

#include <chrono>
#include <functional>
#include <vector>

namespace tessaly::host
{

/// A host's event loop on poll(): file descriptors and timers of plug-ins, in the order they were registered. It runs
/// only when it is told to. Handlers may register and unregister anything while they are called. Not reference
/// counted: its owner keeps it longer than any instance that knows it. Main thread.
class PollRunLoop final : public Steinberg::Linux::IRunLoop
{
public:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::milliseconds;

    /// Waits for a file descriptor or a timer, at most as long as told, and calls all handlers that are due.
    void RunOnce (Milliseconds longestWait);

    void RunFor (Milliseconds time);

    /// Runs until the condition holds, which is asked after every round.
    /// @return whether it came to hold in time
    bool RunUntil (const std::function<bool ()>& condition, Milliseconds atMost = Milliseconds (5000));

    std::size_t EventHandlerCount () const { return eventHandlers.size (); }
    std::size_t TimerCount () const { return timers.size (); }

    Steinberg::tresult PLUGIN_API registerEventHandler (Steinberg::Linux::IEventHandler* handler,
                                                        Steinberg::Linux::FileDescriptor fd) override;
    Steinberg::tresult PLUGIN_API unregisterEventHandler (Steinberg::Linux::IEventHandler* handler) override;
    Steinberg::tresult PLUGIN_API registerTimer (Steinberg::Linux::ITimerHandler* handler,
                                                 Steinberg::Linux::TimerInterval milliseconds) override;
    Steinberg::tresult PLUGIN_API unregisterTimer (Steinberg::Linux::ITimerHandler* handler) override;

    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID wanted, void** out) override;
    Steinberg::uint32 PLUGIN_API addRef () override { return 1; }
    Steinberg::uint32 PLUGIN_API release () override { return 1; }

private:
    struct EventEntry
    {
        Steinberg::IPtr<Steinberg::Linux::IEventHandler> handler;
        int fd;
        bool operator== (const EventEntry&) const = default;
    };
    struct TimerEntry
    {
        Steinberg::IPtr<Steinberg::Linux::ITimerHandler> handler;
        Milliseconds interval;
        Clock::time_point due;
    };

    void CallEventHandlers (Milliseconds longestWait);
    void CallTimers ();

    std::vector<EventEntry> eventHandlers;
    std::vector<TimerEntry> timers;
};

} // namespace tessaly::host
