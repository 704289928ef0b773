#pragma once

#include "pluginterfaces/base/smartpointer.h"
#include "pluginterfaces/gui/iplugview.h"
#include "vstgui/lib/platform/platform_x11.h"
#include <cstdint>
#include <vector>

namespace tessaly
{

/// The one run loop that VSTGUI knows, on top of those that hosts give to each window. VSTGUI keeps the loop of the
/// first window for all others of the process, and some hosts end a window's loop with the window: so this one moves
/// everything to the loop of another open window when the one in use leaves.
///
/// A registration that the host refuses, or never calls, simply does nothing. Host's user-interface thread.
class HostRunLoop final : public VSTGUI::X11::IRunLoop, public VSTGUI::NonAtomicReferenceCounted
{
public:
    static HostRunLoop& Instance (); ///< never destroyed: some hosts tear windows down from `exit`

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
    void Register ();
    void Unregister ();

    std::vector<Steinberg::IPtr<Steinberg::Linux::IRunLoop>> loops; // of the open windows; the first is in use
    Calls<EventCall> events;
    Calls<TimerCall> timers;
};

} // namespace tessaly
