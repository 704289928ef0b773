#include "host_run_loop.h"

#include "host_call.h"
#include "pluginterfaces/base/funknownimpl.h"
#include <algorithm>
#include <chrono>

namespace tessaly
{

using namespace Steinberg;

/// What the host calls when a file descriptor can be read. A loop may keep its reference, or dispatch a copied list,
/// after the registration has ended: the handler is forgotten then.
class HostRunLoop::EventCall final : public U::Implements<U::Directly<Linux::IEventHandler>>
{
public:
    EventCall (int descriptor, VSTGUI::X11::IEventHandler* of)
        : fd (descriptor)
        , handler (of)
    {
    }
    void PLUGIN_API onFDIsSet (Linux::FileDescriptor) override
    {
        const IPtr<EventCall> guard (this); // the handler may end its registration
        const HostCall call;
        if (handler != nullptr)
            handler->onEvent ();
    }
    void Register (Linux::IRunLoop& loop) { loop.registerEventHandler (this, fd); }
    void Unregister (Linux::IRunLoop& loop) { loop.unregisterEventHandler (this); }
    bool IsOf (const VSTGUI::X11::IEventHandler* asked) const { return handler == asked; }
    void Forget () { handler = nullptr; }

private:
    int fd;
    VSTGUI::X11::IEventHandler* handler; // not owned: who registered it
};

class HostRunLoop::TimerCall final : public U::Implements<U::Directly<Linux::ITimerHandler>>
{
public:
    TimerCall (std::uint64_t milliseconds, VSTGUI::X11::ITimerHandler* of)
        : interval (milliseconds)
        , handler (of)
    {
    }
    void PLUGIN_API onTimer () override
    {
        const IPtr<TimerCall> guard (this); // the handler may end its registration
        const HostCall call;
        const auto now = Clock::now ();
        if (handler == nullptr || now - lastCall < interval / 2)
            return; // it has ended, or another loop was here just now
        lastCall = now;
        handler->onTimer ();
    }
    void Register (Linux::IRunLoop& loop) { loop.registerTimer (this, static_cast<std::uint64_t> (interval.count ())); }
    void Unregister (Linux::IRunLoop& loop) { loop.unregisterTimer (this); }
    bool IsOf (const VSTGUI::X11::ITimerHandler* asked) const { return handler == asked; }
    void Forget () { handler = nullptr; }

private:
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds interval;
    Clock::time_point lastCall;
    VSTGUI::X11::ITimerHandler* handler; // not owned: who registered it
};

namespace
{

/// Takes the handler's call off the list. @return null when there is none
template <typename Call, typename Handler>
IPtr<Call> TakeCall (std::vector<IPtr<Call>>& calls, const Handler* handler)
{
    const auto found = std::find_if (calls.begin (), calls.end (), [&] (auto& call) { return call->IsOf (handler); });
    if (found == calls.end ())
        return nullptr;
    const auto call = *found;
    calls.erase (found);
    call->Forget ();
    return call;
}

} // namespace

HostRunLoop::HostRunLoop () = default;

HostRunLoop::~HostRunLoop () noexcept
{
    present = nullptr;
}

VSTGUI::SharedPointer<HostRunLoop> HostRunLoop::Shared ()
{
    if (present != nullptr)
        return present;
    auto made = VSTGUI::owned (new HostRunLoop);
    present = made;
    return made;
}

bool HostRunLoop::Knows (const IPtr<Linux::IRunLoop>& loop) const
{
    return std::find (loops.begin (), loops.end (), loop) != loops.end ();
}

template <typename Call>
void HostRunLoop::Register (Call& call) const
{
    for (auto loop = loops.begin (); loop != loops.end (); ++loop)
        if (std::find (loops.begin (), loop, *loop) == loop)
            call.Register (**loop);
}

template <typename Call>
void HostRunLoop::Unregister (Call& call) const
{
    for (auto loop = loops.begin (); loop != loops.end (); ++loop)
        if (std::find (loops.begin (), loop, *loop) == loop)
            call.Unregister (**loop);
}

void HostRunLoop::Join (const IPtr<Linux::IRunLoop>& loop)
{
    if (!Knows (loop))
    {
        for (const auto& call : Calls<EventCall> (events)) // copies: the host may call back at once
            call->Register (*loop);
        for (const auto& call : Calls<TimerCall> (timers))
            call->Register (*loop);
    }
    loops.push_back (loop);
}

void HostRunLoop::Leave (const IPtr<Linux::IRunLoop>& loop)
{
    const auto found = std::find (loops.begin (), loops.end (), loop);
    if (found == loops.end ())
        return;
    const auto leaving = *found;
    loops.erase (found);
    if (Knows (leaving))
        return;
    for (const auto& call : Calls<EventCall> (events))
        call->Unregister (*leaving);
    for (const auto& call : Calls<TimerCall> (timers))
        call->Unregister (*leaving);
}

bool HostRunLoop::registerEventHandler (int fd, VSTGUI::X11::IEventHandler* handler)
{
    const auto call = owned (new EventCall (fd, handler));
    events.push_back (call);
    Register (*call);
    return true;
}

bool HostRunLoop::unregisterEventHandler (VSTGUI::X11::IEventHandler* handler)
{
    const auto call = TakeCall (events, handler);
    if (call)
        Unregister (*call);
    return call != nullptr;
}

bool HostRunLoop::registerTimer (std::uint64_t intervalMs, VSTGUI::X11::ITimerHandler* handler)
{
    const auto call = owned (new TimerCall (intervalMs, handler));
    timers.push_back (call);
    Register (*call);
    return true;
}

bool HostRunLoop::unregisterTimer (VSTGUI::X11::ITimerHandler* handler)
{
    const auto call = TakeCall (timers, handler);
    if (call)
        Unregister (*call);
    return call != nullptr;
}

} // namespace tessaly
