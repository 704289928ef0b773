#include "hand_run_loop.h"
#include "host_call.h"
#include "host_run_loop.h"

#include <doctest/doctest.h>
#include <functional>
#include <string>

using namespace Steinberg;
using namespace tessaly;

namespace
{

struct CountingTimer final : VSTGUI::X11::ITimerHandler
{
    void onTimer () override
    {
        ++calls;
        if (then)
            then ();
    }
    int calls = 0;
    std::function<void ()> then;
};

} // namespace

TEST_CASE ("HostRunLoop: a timer goes on with any loop that is left, and counts once where two call it")
{
    HandRunLoop first;
    HandRunLoop second;
    second.keepsHandlers = true;
    const IPtr<Linux::IRunLoop> firstLoop (&first);
    const IPtr<Linux::IRunLoop> secondLoop (&second);
    CountingTimer timer;
    const auto loop = HostRunLoop::Shared ();
    loop->Join (firstLoop);
    loop->registerTimer (1000, &timer);
    loop->Join (secondLoop);
    loop->Join (secondLoop); // by a second window
    CHECK (first.TimerCount () == 1);
    CHECK (second.TimerCount () == 1);
    first.FireTimers ();
    second.FireTimers ();
    CHECK (timer.calls == 1);
    loop->Leave (firstLoop);
    loop->Leave (secondLoop);
    CHECK (first.TimerCount () == 0);
    CHECK (second.TimerCount () == 1);
    loop->unregisterTimer (&timer);
    loop->Leave (secondLoop);
    second.FireLate ();
    CHECK (timer.calls == 1);
    CHECK (second.TimerCount () == 0);
}

TEST_CASE ("HostRunLoop: it goes with its last user, and the next one finds a new one")
{
    HandRunLoop host;
    CountingTimer timer;
    {
        const auto loop = HostRunLoop::Shared ();
        CHECK ((HostRunLoop::Shared ().get () == loop.get ()));
        loop->registerTimer (1000, &timer);
    }
    const auto next = HostRunLoop::Shared ();
    next->Join (IPtr<Linux::IRunLoop> (&host));
    CHECK (host.TimerCount () == 0);
}

TEST_CASE ("HostCall: what is put off runs when the outermost call has returned, and once")
{
    std::string order;
    const auto note = [&] (char letter) { HostCall::AtEnd ([&order, letter] { order += letter; }); };
    note ('a');
    {
        const HostCall outer;
        note ('b');
        {
            const HostCall inner;
            note ('c');
        }
        HostCall::AtEnd (
            [&]
            {
                const HostCall next; // what ends a window calls the host
                note ('d');
                order += '-';
            });
        note ('e');
        order += '|';
    }
    CHECK (order == "a|bc-de");
    CHECK_FALSE (HostCall::IsInside ());
}
