#include "poll_run_loop.h"

#include <algorithm>
#include <poll.h>

namespace tessaly::host
{

using namespace Steinberg;

void PollRunLoop::RunOnce (Milliseconds longestWait)
{
    const auto now = Clock::now ();
    for (const TimerEntry& timer : timers)
        longestWait = std::min (longestWait, std::chrono::ceil<Milliseconds> (timer.due - now));
    CallEventHandlers (std::max (longestWait, Milliseconds (0)));
    CallTimers ();
}

void PollRunLoop::RunFor (Milliseconds time)
{
    RunUntil ([] { return false; }, time);
}

bool PollRunLoop::RunUntil (const std::function<bool ()>& condition, Milliseconds atMost)
{
    // Some conditions change by another thread or program, of which no file descriptor tells.
    constexpr Milliseconds kRound{ 5 };
    const auto end = Clock::now () + atMost;
    while (Clock::now () < end)
    {
        RunOnce (kRound);
        if (condition ())
            return true;
    }
    return false;
}

void PollRunLoop::CallEventHandlers (Milliseconds longestWait)
{
    std::vector<pollfd> fds;
    for (const EventEntry& entry : eventHandlers)
        fds.push_back ({ entry.fd, POLLIN, 0 });
    if (poll (fds.data (), fds.size (), static_cast<int> (longestWait.count ())) <= 0)
        return;
    const auto entries = eventHandlers; // the copies keep each handler alive while it is called
    for (std::size_t i = 0; i < entries.size (); ++i)
        if (fds[i].revents != 0 && std::ranges::find (eventHandlers, entries[i]) != eventHandlers.end ())
            entries[i].handler->onFDIsSet (entries[i].fd);
}

void PollRunLoop::CallTimers ()
{
    const auto now = Clock::now ();
    const auto entries = timers;
    for (const TimerEntry& entry : entries)
    {
        const auto timer = std::ranges::find (timers, entry.handler, &TimerEntry::handler);
        if (timer == timers.end () || timer->due > now)
            continue;
        timer->due = now + timer->interval; // ticks that were missed are not made up for
        entry.handler->onTimer ();
    }
}

tresult PLUGIN_API PollRunLoop::registerEventHandler (Linux::IEventHandler* handler, Linux::FileDescriptor fd)
{
    if (!handler || fd < 0)
        return kInvalidArgument;
    eventHandlers.push_back ({ handler, fd });
    return kResultOk;
}

tresult PLUGIN_API PollRunLoop::unregisterEventHandler (Linux::IEventHandler* handler)
{
    const auto isIt = [handler] (const EventEntry& entry) { return entry.handler == handler; };
    return std::erase_if (eventHandlers, isIt) != 0 ? kResultOk : kResultFalse;
}

tresult PLUGIN_API PollRunLoop::registerTimer (Linux::ITimerHandler* handler, Linux::TimerInterval milliseconds)
{
    if (!handler || milliseconds == 0)
        return kInvalidArgument;
    const Milliseconds interval (milliseconds);
    timers.push_back ({ handler, interval, Clock::now () + interval });
    return kResultOk;
}

tresult PLUGIN_API PollRunLoop::unregisterTimer (Linux::ITimerHandler* handler)
{
    const auto isIt = [handler] (const TimerEntry& entry) { return entry.handler == handler; };
    return std::erase_if (timers, isIt) != 0 ? kResultOk : kResultFalse;
}

tresult PLUGIN_API PollRunLoop::queryInterface (const TUID wanted, void** out)
{
    QUERY_INTERFACE (wanted, out, FUnknown::iid, IRunLoop)
    QUERY_INTERFACE (wanted, out, IRunLoop::iid, IRunLoop)
    *out = nullptr;
    return kNoInterface;
}

} // namespace tessaly::host
