#pragma once

#include "pluginterfaces/base/funknownimpl.h"
#include "pluginterfaces/gui/iplugview.h"
#include <vector>

namespace tessaly
{

/// A run loop that runs its timers when told to, whatever the clock says. Not reference counted: its owner keeps it
/// longer than any instance that knows it.
class HandRunLoop final
    : public Steinberg::U::ImplementsNonDestroyable<Steinberg::U::Directly<Steinberg::Linux::IRunLoop>>
{
public:
    explicit HandRunLoop (bool answersTimers = true)
        : takesTimers (answersTimers)
    {
    }

    void FireTimers ()
    {
        const auto copy = timers; // a handler may be taken out while it is called
        for (auto* handler : copy)
            handler->onTimer ();
    }
    /// Calls all handlers that were kept, as loops do that dispatch late.
    void FireLate () const
    {
        for (const auto& handler : late)
            handler->onTimer ();
    }
    bool keepsHandlers = false; ///< on: this must end before the module is unloaded
    std::size_t TimerCount () const { return timers.size (); }
    Steinberg::Linux::TimerInterval lastInterval = 0;

    Steinberg::tresult PLUGIN_API registerTimer (Steinberg::Linux::ITimerHandler* handler,
                                                 Steinberg::Linux::TimerInterval milliseconds) override
    {
        if (!takesTimers)
            return Steinberg::kNotImplemented;
        lastInterval = milliseconds;
        timers.push_back (handler);
        if (keepsHandlers)
            late.emplace_back (handler);
        return Steinberg::kResultOk;
    }
    Steinberg::tresult PLUGIN_API unregisterTimer (Steinberg::Linux::ITimerHandler* handler) override
    {
        return std::erase (timers, handler) != 0 ? Steinberg::kResultOk : Steinberg::kResultFalse;
    }
    Steinberg::tresult PLUGIN_API registerEventHandler (Steinberg::Linux::IEventHandler*,
                                                        Steinberg::Linux::FileDescriptor) override
    {
        return Steinberg::kNotImplemented;
    }
    Steinberg::tresult PLUGIN_API unregisterEventHandler (Steinberg::Linux::IEventHandler*) override
    {
        return Steinberg::kNotImplemented;
    }

private:
    bool takesTimers;
    std::vector<Steinberg::Linux::ITimerHandler*> timers; // not owned: the plug-in
    std::vector<Steinberg::IPtr<Steinberg::Linux::ITimerHandler>> late;
};

} // namespace tessaly
