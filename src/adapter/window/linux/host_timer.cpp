#include "host_timer.h"

#include "pluginterfaces/base/funknownimpl.h"
#include "pluginterfaces/gui/iplugview.h"
#include <mutex>

namespace tessaly
{

using namespace Steinberg;

namespace
{

/// What the run loop calls. A loop may keep its reference, or dispatch a copied list, after the timer has stopped:
/// the function is forgotten then. Some hosts end an instance on a thread of their own, so the lock keeps that thread
/// until a call on the loop's thread is over. Recursive: the host may end the timer from within the call.
class TimerHandler final : public U::Implements<U::Directly<Linux::ITimerHandler>>
{
public:
    explicit TimerHandler (std::function<void ()> function)
        : onTimerFunction (std::move (function))
    {
    }

    void PLUGIN_API onTimer () override
    {
        const std::scoped_lock lock (mutex);
        const auto function = onTimerFunction; // a copy: Forget may come from within the call
        if (function)
            function ();
    }
    void Forget ()
    {
        const std::scoped_lock lock (mutex);
        onTimerFunction = nullptr;
    }

private:
    std::recursive_mutex mutex;
    std::function<void ()> onTimerFunction;
};

} // namespace

struct HostTimer::Registration
{
    IPtr<Linux::IRunLoop> loop;
    IPtr<TimerHandler> handler;
};

bool HostTimer::Start (FUnknown* context, FUnknown* fallbackContext, std::uint64_t intervalMs,
                       std::function<void ()> onTimer)
{
    Stop ();
    for (FUnknown* source : { context, fallbackContext })
    {
        const auto loop = U::cast<Linux::IRunLoop> (source);
        auto handler = owned (new TimerHandler (onTimer));
        if (loop && loop->registerTimer (handler, intervalMs) == kResultOk)
        {
            registration = std::make_unique<Registration> (Registration{ loop, handler });
            return true;
        }
    }
    return false;
}

void HostTimer::Stop ()
{
    if (!registration)
        return;
    const auto ended = std::move (registration);
    ended->handler->Forget ();
    ended->loop->unregisterTimer (ended->handler);
}

HostTimer::HostTimer () = default;

HostTimer::~HostTimer ()
{
    Stop ();
}

} // namespace tessaly
