#pragma once

#include "pluginterfaces/base/smartpointer.h"
#include "pluginterfaces/gui/iplugview.h"
#include "vstgui/lib/platform/platform_x11.h"
#include <cstdint>
#include <vector>

namespace tessaly
{

/// The one run loop that VSTGUI knows, on top of those that hosts give to each window. VSTGUI keeps the loop of the
/// first window for all others of the process, and some hosts end a window's loop with the window. So everything is
/// registered with the loop of every open window, once with each; a timer that several of them call counts once.
///
/// A registration that the host refuses, or never calls, simply does nothing. Host's user-interface thread.
class HostRunLoop final : public VSTGUI::X11::IRunLoop, public VSTGUI::NonAtomicReferenceCounted
{
public:
    static VSTGUI::SharedPointer<HostRunLoop> Shared (); ///< goes with the last who has it

    void Join (const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& loop); ///< one call for each window
    void Leave (const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& loop);

    bool registerEventHandler (int fd, VSTGUI::X11::IEventHandler* handler) override;
    bool unregisterEventHandler (VSTGUI::X11::IEventHandler* handler) override;
    bool registerTimer (std::uint64_t intervalMs, VSTGUI::X11::ITimerHandler* handler) override;
    bool unregisterTimer (VSTGUI::X11::ITimerHandler* handler) override;

private:
    class EventCall;
    class TimerCall;
    template <typename Call>
    using Calls = std::vector<Steinberg::IPtr<Call>>;

    HostRunLoop ();
    ~HostRunLoop () noexcept override;
    bool Knows (const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& loop) const;
    template <typename Call>
    void Register (Call& call) const;
    template <typename Call>
    void Unregister (Call& call) const;

    inline static HostRunLoop* present = nullptr; // not owned: who has it

    std::vector<Steinberg::IPtr<Steinberg::Linux::IRunLoop>> loops; // one for each open window
    Calls<EventCall> events;
    Calls<TimerCall> timers;
};

} // namespace tessaly
