#include "hand_run_loop.h"
#include "joined_halves.h"
#include "strip_in_host.h"
#include <atomic>
#include <thread>

// The controller's timer, from the host's run loop.

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

TEST_CASE ("Open edits end after two seconds, last one first, by the run loop's timer or at the host's next call")
{
    HandRunLoop loop;
    HandRunLoop refusing (false); // takes no timers, and is lived without
    handClockMs = 0;
    JoinedHalves timed (&loop);
    JoinedHalves called (&refusing);
    for (JoinedHalves* halves : { &timed, &called })
        halves->controller->setParamNormalized (kMorph, 0.5);
    auto begun = timed.Ids (Kind::beginEdit);
    REQUIRE (begun.size () > 10);
    for (const auto& [nowMs, ended] : { std::pair{ 2000u, false }, { 2001u, true } })
    {
        handClockMs = nowMs;
        loop.FireTimers ();
        called.controller->getParamNormalized (0);
        CHECK (timed.Ids (Kind::endEdit).empty () != ended);
        CHECK (timed.Ids (Kind::endEdit) == called.Ids (Kind::endEdit));
    }
    std::ranges::reverse (begun);
    CHECK (timed.Ids (Kind::endEdit) == begun);
}

TEST_CASE ("The timer comes from either host context, goes with the controller and may fire late")
{
    HandRunLoop loop;
    loop.keepsHandlers = true;
    {
        StripInHost strip ({}, &loop);
        CHECK (loop.TimerCount () == 1);
        CHECK (loop.lastInterval == 20);
    }
    CHECK (loop.TimerCount () == 0);
    loop.FireLate (); // at nobody

    // A loop that only the factory is told of serves as well.
    host::NamedHost factoryContext ("loop in the factory", &loop);
    host::NamedHost plainContext ("no loop");
    const ContextReturn contextReturn;
    const auto& factory = LoadedBundle ().Factory ();
    factory.setHostContext (&factoryContext);
    const auto controller = factory.createInstance<Vst::IEditController> (factory.classInfos ()[1].ID ());
    REQUIRE (controller);
    REQUIRE (controller->initialize (&plainContext) == kResultOk);
    CHECK (loop.TimerCount () == 1);
    controller->terminate ();
    CHECK (loop.TimerCount () == 0);
}

TEST_CASE ("The timer fires while a worker ends the instance")
{
    for (int i = 0; i < 50; ++i)
    {
        HandRunLoop loop;
        loop.keepsHandlers = true;
        StripInHost strip ({}, &loop);
        strip.Set (kMorph, 1.0);
        std::atomic<bool> ended = false;
        std::thread worker (
            [&]
            {
                strip.instance.Controller ().terminate ();
                ended = true;
            });
        do
            loop.FireLate ();
        while (!ended);
        worker.join ();
        CHECK (OpenEdits (strip.calls) == 0);
    }
}
