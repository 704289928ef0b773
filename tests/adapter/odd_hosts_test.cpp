#include "loose_halves.h"
#include <atomic>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

TEST_CASE ("Odd hosts: calls left out, repeated or out of order leave an instance that plays and ends well")
{
    using H = LooseHalves;
    const std::pair<const char*, std::vector<void (H::*) ()>> orders[]{
        { "terminated while active", { &H::SetUp, &H::On, &H::End, &H::EndController } },
        { "activated and deactivated twice", { &H::Off, &H::SetUp, &H::On, &H::On, &H::Play, &H::Off, &H::Off } },
        { "processing before it is active, or set up", { &H::Play } },
        { "set up anew while active, and deleted without a word", { &H::SetUp, &H::On, &H::Play, &H::SetUp } },
        { "never connected", { &H::ShowsNothing } },
        { "connected twice, and again after a disconnection",
          { &H::Connect, &H::SetQuarter, &H::ConnectTwice, &H::Disconnect, &H::Connect, &H::ShowsQuarter,
            &H::Disconnect } },
        { "terminated and initialized again",
          { &H::Connect, &H::End, &H::Begin, &H::SetUp, &H::On, &H::Play, &H::End } },
        { "the component gone first", { &H::Connect, &H::End, &H::DropComponent, &H::ShowsNothing } },
        { "the controller gone first", { &H::Connect, &H::SetUp, &H::On, &H::EndController, &H::DropController } },
        { "used after its end", { &H::Connect, &H::End, &H::On, &H::SetUp, &H::Play, &H::End } },
    };
    for (const auto& [name, steps] : orders)
        for (const char* const hostName : { "odd host", "Ardour" }) // where a thread is at work on the instance, too
        {
            CAPTURE (name);
            CAPTURE (hostName);
            LooseHalves halves (LoadedBundle ().Factory (), LoadedBundle ().Factory ().classInfos (), hostName);
            for (const auto& step : steps)
                (halves.*step) ();
            if (halves.processor)
                halves.Play ();
        }
}

TEST_CASE ("Odd hosts: every message delivered twice and to both halves, so an effect announced twice, changes nothing")
{
    LooseHalves halves;
    int messages = 0;
    Relay doubling;
    doubling.onMessage = [&] (Vst::IMessage* message)
    {
        for (int i = 0; i < 4; ++i)
            (i % 2 == 0 ? halves.componentPoint : halves.controllerPoint)->notify (message);
        ++messages;
        return kResultOk;
    };
    CHECK (halves.componentPoint->connect (&doubling) == kResultOk);
    halves.SetQuarter ();
    halves.On ();
    halves.ShowsQuarter ();
    halves.componentPoint->disconnect (&doubling);
    halves.ShowsNothing ();
    CHECK (messages == 4); // connected, mono, active, disconnected
}

TEST_CASE ("Odd hosts: edits end with the handler that heard them begin, even if it goes within an edit")
{
    int heard = 0;
    Vst::IEditController* controller = nullptr;
    host::InstanceOptions options;
    options.onHandlerCall = [&] (const host::HandlerCall& call)
    {
        if (call.kind == Kind::performEdit && ++heard == 3)
            controller->setComponentHandler (nullptr);
    };
    std::vector<host::HandlerCall> later;
    host::ComponentHandler next ([&] (const host::HandlerCall& call) { later.push_back (call); });
    StripInHost strip (options);
    controller = &strip.instance.Controller ();
    strip.Set (kMorph, 1.0); // most of it heard by nobody
    controller->setComponentHandler (&next);
    CHECK (OpenEdits (strip.calls) == 0);
    CHECK (later.empty ());
    strip.Set (kMorph, 0.6);
    CHECK (OpenEdits (later) > 10);
    controller->terminate ();
    CHECK (OpenEdits (later) == 0);
}

TEST_CASE ("Odd hosts: instances that are made, used and ended on threads of their own do not meet")
{
    constexpr int kThreads = 4;
    const auto& factory = LoadedBundle ().Factory ();
    const auto classes = factory.classInfos (); // once: the SDK converts their texts through one object for all threads
    // The first instances of the process at once: what is made only once is made then. No std::latch: on Windows the wait
    // of g++ 12's may miss the last arrival, and never end.
    std::atomic<int> late = kThreads;
    const auto live = [&]
    {
        --late;
        while (late > 0)
            std::this_thread::yield ();
        for (int i = 0; i < 50; ++i)
        {
            LooseHalves halves (factory, classes, i % 2 == 0 ? "odd host" : "Ardour");
            halves.Connect ();
            halves.SetUp ();
            halves.On ();
            halves.Play ();
            halves.SetQuarter ();
            halves.controller->setParamNormalized (kMorph, 1.0);
            halves.ShowsQuarter ();
            halves.End ();
            halves.ShowsNothing ();
            halves.EndController ();
        }
    };
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back (live);
}
