#include "host_run_loop.h"

#include "pluginterfaces/base/funknownimpl.h"
#include <algorithm>

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
        : intervalMs (milliseconds)
        , handler (of)
    {
    }
    void PLUGIN_API onTimer () override
    {
        const IPtr<TimerCall> guard (this); // the handler may end its registration
        if (handler != nullptr)
            handler->onTimer ();
    }
    void Register (Linux::IRunLoop& loop) { loop.registerTimer (this, intervalMs); }
    void Unregister (Linux::IRunLoop& loop) { loop.unregisterTimer (this); }
    bool IsOf (const VSTGUI::X11::ITimerHandler* asked) const { return handler == asked; }
    void Forget () { handler = nullptr; }

private:
    std::uint64_t intervalMs;
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
HostRunLoop::~HostRunLoop () noexcept = default;

HostRunLoop& HostRunLoop::Instance ()
{
    static auto* const instance = new HostRunLoop;
    return *instance;
}

void HostRunLoop::Join (const IPtr<Linux::IRunLoop>& loop)
{
    loops.push_back (loop);
    if (loops.size () == 1)
        Register ();
}

void HostRunLoop::Leave (const IPtr<Linux::IRunLoop>& loop)
{
    const auto found = std::find (loops.begin (), loops.end (), loop);
    if (found == loops.end ())
        return;
    const bool another = found == loops.begin () && (loops.size () == 1 || loops[1] != loop);
    if (another)
        Unregister ();
    loops.erase (found);
    if (another)
        Register ();
}

void HostRunLoop::Register ()
{
    if (loops.empty ())
        return;
    const auto loop = loops.front ();
    for (const auto& call : Calls<EventCall> (events))
        call->Register (*loop);
    for (const auto& call : Calls<TimerCall> (timers))
        call->Register (*loop);
}

void HostRunLoop::Unregister ()
{
    const auto loop = loops.front ();
    for (const auto& call : Calls<EventCall> (events))
        call->Unregister (*loop);
    for (const auto& call : Calls<TimerCall> (timers))
        call->Unregister (*loop);
}

bool HostRunLoop::registerEventHandler (int fd, VSTGUI::X11::IEventHandler* handler)
{
    events.push_back (owned (new EventCall (fd, handler)));
    if (!loops.empty ())
        events.back ()->Register (*loops.front ());
    return true;
}

bool HostRunLoop::unregisterEventHandler (VSTGUI::X11::IEventHandler* handler)
{
    const auto call = TakeCall (events, handler);
    if (call && !loops.empty ())
        call->Unregister (*loops.front ());
    return call != nullptr;
}

bool HostRunLoop::registerTimer (std::uint64_t intervalMs, VSTGUI::X11::ITimerHandler* handler)
{
    timers.push_back (owned (new TimerCall (intervalMs, handler)));
    if (!loops.empty ())
        timers.back ()->Register (*loops.front ());
    return true;
}

bool HostRunLoop::unregisterTimer (VSTGUI::X11::ITimerHandler* handler)
{
    const auto call = TakeCall (timers, handler);
    if (call && !loops.empty ())
        call->Unregister (*loops.front ());
    return call != nullptr;
}

} // namespace tessaly
