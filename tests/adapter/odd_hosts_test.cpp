#include "strip_in_host.h"
#include "temp_folder.h"
#include <dlfcn.h>
#include <latch>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

namespace
{

/// Both halves as a host makes them from a factory, with steps to be taken in any order.
struct LooseHalves
{
    using Factory = VST3::Hosting::PluginFactory;

    explicit LooseHalves (const Factory& factory = LoadedBundle ().Factory (),
                          const Factory::ClassInfos& classes = LoadedBundle ().Factory ().classInfos ())
        : component (factory.createInstance<Vst::IComponent> (classes[0].ID ()))
        , controller (factory.createInstance<Vst::IEditController> (classes[1].ID ()))
    {
        Begin ();
        CHECK (controller->initialize (&context) == kResultOk);
    }

    void Begin () { CHECK (component->initialize (&context) == kResultOk); }
    void End () { CHECK (component->terminate () == kResultOk); }
    void EndController () { CHECK (controller->terminate () == kResultOk); }
    void DropComponent ()
    {
        processor = nullptr;
        componentPoint = nullptr;
        component = nullptr;
    }
    void DropController ()
    {
        controllerPoint = nullptr;
        controller = nullptr;
    }

    void Connect ()
    {
        CHECK (componentPoint->connect (controllerPoint) == kResultOk);
        CHECK (controllerPoint->connect (componentPoint) == kResultOk);
    }
    void ConnectTwice () { CHECK (componentPoint->connect (controllerPoint) != kResultOk); }
    void Disconnect () ///< or each keeps the other for ever
    {
        componentPoint->disconnect (controllerPoint);
        controllerPoint->disconnect (componentPoint);
    }

    void SetUp ()
    {
        Vst::ProcessSetup setup{ Vst::kRealtime, Vst::kSample32, 64, 48000.0 };
        CHECK (processor->setupProcessing (setup) == kResultOk);
    }
    void On () { CHECK (component->setActive (true) == kResultOk); }
    void Off () { CHECK (component->setActive (false) == kResultOk); }
    void Play ()
    {
        MonoBlock block;
        CHECK (processor->process (block.data) == kResultOk);
        CHECK (AllFinite (block.samples));
    }

    void SetQuarter () { CHECK (controller->setParamNormalized (kDrive, 0.25) == kResultOk); }
    void ShowsQuarter ()
    {
        CHECK (controller->getParameterCount () == kParameterCount + 2);
        CHECK (controller->getParamNormalized (kDrive) == 0.25);
    }
    void ShowsNothing ()
    {
        CHECK (controller->getParameterCount () == 0);
        CHECK (controller->setComponentState (nullptr) == kResultOk);
        CHECK (controller->setParamNormalized (kMorph, 1.0) == kResultFalse);
    }

    host::NamedHost context{ "odd host" };
    IPtr<Vst::IComponent> component;
    IPtr<Vst::IEditController> controller;
    FUnknownPtr<Vst::IAudioProcessor> processor{ component };
    FUnknownPtr<Vst::IConnectionPoint> componentPoint{ component };
    FUnknownPtr<Vst::IConnectionPoint> controllerPoint{ controller };
};

} // namespace

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
    {
        CAPTURE (name);
        LooseHalves halves;
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
    std::latch start (kThreads); // the first instances of the process at once: what is made only once is made then
    const auto live = [&]
    {
        start.arrive_and_wait ();
        for (int i = 0; i < 50; ++i)
        {
            LooseHalves halves (factory, classes);
            halves.Connect ();
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

TEST_CASE ("Odd hosts: the library goes when asked, comes back, and stands objects that outlive its exit call")
{
    // A copy: the other tests keep the built one loaded.
    const TempFolder folder;
    const auto path = folder / "Tessaly Bench [m].vst3";
    std::filesystem::copy (TESSALY_BUNDLE, path, std::filesystem::copy_options::recursive);
    std::filesystem::path library;
    for (const auto& entry : std::filesystem::recursive_directory_iterator (path))
        if (entry.path ().extension () == ".so")
            library = entry.path ();
    const auto isLoaded = [&library]
    {
        void* handle = dlopen (library.c_str (), RTLD_LAZY | RTLD_NOLOAD);
        return handle != nullptr && dlclose (handle) == 0;
    };

    for (int round = 0; round < 2; ++round)
    {
        {
            host::NamedHost context ("loads twice");
            host::PluginInstance first (host::Bundle (path), context);
            host::PluginInstance second (host::Bundle (path), context);
            first.Parameters ().SetNormalized (kDrive, 0.25);
            CHECK (second.Parameters ().Normalized (kDrive) == 0.5); // two instances of one library share nothing
            CHECK (isLoaded ());
            host::Bundle (path).Factory ().setHostContext (nullptr);
        }
        CHECK_FALSE (isLoaded ());

        void* handle = dlopen (library.c_str (), RTLD_LAZY);
        REQUIRE (handle != nullptr);
        CHECK (reinterpret_cast<bool (*) (void*)> (dlsym (handle, "ModuleEntry")) (handle));
        {
            const auto getFactory = reinterpret_cast<IPluginFactory* (*)()> (dlsym (handle, "GetPluginFactory"));
            LooseHalves halves{ VST3::Hosting::PluginFactory (owned (getFactory ())) };
            halves.Connect ();
            CHECK (reinterpret_cast<bool (*) ()> (dlsym (handle, "ModuleExit")) ());
            halves.Play ();
            halves.EndController ();
            halves.End ();
        }
        dlclose (handle);
        CHECK_FALSE (isLoaded ());
    }
}
