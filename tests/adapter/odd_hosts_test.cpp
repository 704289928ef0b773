#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_in_host.h"
#include "temp_folder.h"
#include <atomic>
#include <dlfcn.h>
#include <doctest/doctest.h>
#include <latch>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

namespace
{

constexpr Vst::ParamID kTotalGain = 17;
constexpr Vst::ParamID kMorph = 20;

/// Both halves as a host makes them from a factory, with steps to be taken in any order.
struct LooseHalves
{
    using Factory = VST3::Hosting::PluginFactory;

    explicit LooseHalves (const Factory& factory)
        : LooseHalves (factory, factory.classInfos ())
    {
        InitializeComponent ();
        CHECK (controller->initialize (&context) == kResultOk);
    }
    LooseHalves (const Factory& factory, const Factory::ClassInfos& classes)
        : component (factory.createInstance<Vst::IComponent> (classes[0].ID ()))
        , controller (factory.createInstance<Vst::IEditController> (classes[1].ID ()))
    {
    }

    void InitializeComponent () { CHECK (component->initialize (&context) == kResultOk); }
    void EndComponent () { CHECK (component->terminate () == kResultOk); }
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
    void Reconnect ()
    {
        componentPoint->disconnect (controllerPoint);
        CHECK (componentPoint->connect (controllerPoint) == kResultOk);
    }
    void Disconnect () ///< or each keeps the other for ever
    {
        componentPoint->disconnect (controllerPoint);
        controllerPoint->disconnect (componentPoint);
    }

    void SetRate (double rateHz)
    {
        Vst::ProcessSetup setup{ Vst::kRealtime, Vst::kSample32, 64, rateHz };
        CHECK (processor->setupProcessing (setup) == kResultOk);
    }
    void SetUp () { SetRate (48000.0); }
    void SetUpOddly ()
    {
        for (const double rateHz : { 96000.0, 0.0, -1.0, std::nan (""), HUGE_VAL }) // one rate and none
        {
            SetRate (rateHz);
            CHECK (processor->getTailSamples () == 7 * 96000);
        }
    }
    void On () { CHECK (component->setActive (true) == kResultOk); }
    void Off () { CHECK (component->setActive (false) == kResultOk); }
    void Play ()
    {
        MonoBlock block;
        CHECK (processor->process (block.data) == kResultOk);
        CHECK (AllFinite (block.samples));
    }

    void SetQuarter () { CHECK (controller->setParamNormalized (0, 0.25) == kResultOk); }
    void LoadQuarter ()
    {
        StripInHost source;
        source.Set (0, 0.25);
        ResizableMemoryIBStream stream;
        source.instance.Component ().getState (&stream);
        stream.rewind ();
        CHECK (component->setState (&stream) == kResultOk);
        CHECK (controller->setComponentState (&stream) == kResultOk);
    }
    void ShowsQuarter ()
    {
        CHECK (controller->getParameterCount () == kParameterCount + 2);
        CHECK (controller->setComponentState (nullptr) == kResultOk);
        CHECK (controller->getParamNormalized (0) == 0.25);
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

struct Order
{
    std::string name;
    std::vector<std::function<void (LooseHalves&)>> steps;
};

std::vector<Order> Orders ()
{
    using H = LooseHalves;
    return {
        { "deleted without a word", { &H::SetUp, &H::On } },
        { "terminated while active", { &H::SetUp, &H::On, &H::EndComponent, &H::EndController } },
        { "activated and deactivated twice", { &H::Off, &H::SetUp, &H::On, &H::On, &H::Play, &H::Off, &H::Off } },
        { "processing before it is active, or set up", { &H::Play } },
        { "set up anew while active", { &H::SetUp, &H::On, &H::Play, &H::SetUpOddly } },
        { "never connected", { &H::ShowsNothing } },
        { "connected twice, and again after a disconnection",
          { &H::Connect, &H::SetQuarter, &H::ConnectTwice, &H::Reconnect, &H::ShowsQuarter, &H::Disconnect } },
        { "terminated and initialized again",
          { &H::Connect, &H::EndComponent, &H::InitializeComponent, &H::SetUp, &H::On, &H::Play, &H::EndComponent } },
        { "the component gone first", { &H::Connect, &H::EndComponent, &H::DropComponent, &H::ShowsNothing } },
        { "the controller gone first", { &H::Connect, &H::SetUp, &H::On, &H::EndController, &H::DropController } },
        { "used after its end", { &H::Connect, &H::EndComponent, &H::On, &H::SetUp, &H::Play, &H::EndComponent } },
        { "a state before the connection", { &H::LoadQuarter, &H::Connect, &H::ShowsQuarter, &H::Disconnect } },
    };
}

} // namespace

TEST_CASE ("Odd hosts: calls left out, repeated or out of order leave an instance that plays and ends well")
{
    for (const Order& order : Orders ())
    {
        CAPTURE (order.name);
        LooseHalves halves (LoadedBundle ().Factory ());
        for (const auto& step : order.steps)
            step (halves);
        if (halves.processor)
            halves.Play ();
    }
}

TEST_CASE ("Odd hosts: every message delivered twice and to both halves, so an effect announced twice, changes nothing")
{
    LooseHalves halves (LoadedBundle ().Factory ());
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

TEST_CASE ("Odd hosts: parameters set one by one before or after the state leave its edits beside the dial alone")
{
    StripInHost source;
    source.Set (kMorph, 0.375);
    for (const Vst::ParamID id : { 1u, 5u, 10u, 17u })
        source.Set (id, 0.25);
    const auto state = source.instance.SaveState ();

    for (const bool stateIsLast : { true, false })
    {
        StripInHost strip;
        strip.Set (kMorph, 0.9);
        if (!stateIsLast)
            strip.instance.LoadState (state);
        for (Vst::ParamID id = 0; id < kParameterCount; ++id)
            strip.Set (id, source.Value (id));
        if (stateIsLast)
            strip.instance.LoadState (state);
        CHECK (strip.instance.SaveState () == state);
        for (Vst::ParamID id = 0; id < kParameterCount; ++id)
            CHECK (strip.Value (id) == source.Value (id));
    }
}

TEST_CASE ("Odd hosts: edits end with the handler that heard them begin, whenever it goes")
{
    // The handler goes within the third edit that it hears, between two changes, and never.
    for (const int leavesAt : { 3, 100, 1000 })
    {
        CAPTURE (leavesAt);
        int heard = 0;
        Vst::IEditController* controller = nullptr;
        host::InstanceOptions options;
        options.onHandlerCall = [&] (const host::HandlerCall& call)
        {
            if (call.kind == Kind::performEdit && ++heard == leavesAt)
                controller->setComponentHandler (nullptr);
        };
        std::vector<host::HandlerCall> later;
        host::ComponentHandler next ([&] (const host::HandlerCall& call) { later.push_back (call); });
        StripInHost strip (options);
        controller = &strip.instance.Controller ();
        strip.Set (kMorph, 1.0);
        if (leavesAt == 100)
            controller->setComponentHandler (nullptr);
        strip.Set (kMorph, 0.3); // heard by nobody in two of the rounds
        controller->setComponentHandler (&next);
        CHECK (OpenEdits (strip.calls) == 0);
        CHECK (later.empty ());
        strip.Set (kMorph, 0.6);
        CHECK (OpenEdits (later) > 10);
        if (leavesAt == 1000)
            controller->terminate (); // a handler that never leaves
        else
            controller->setComponentHandler (nullptr);
        CHECK (OpenEdits (later) == 0);
    }
}

TEST_CASE ("Odd hosts: instances that are made, used and ended on threads of their own do not meet")
{
    constexpr int kThreads = 4;
    constexpr int kLives = 50;
    const auto& factory = LoadedBundle ().Factory ();
    const auto classes = factory.classInfos (); // once: the SDK converts their texts through one object for all threads
    std::latch start (kThreads); // the first instances of the process at once: what is made only once is made then
    std::atomic<int> good = 0;
    const auto live = [&]
    {
        start.arrive_and_wait ();
        for (int i = 0; i < kLives; ++i)
        {
            LooseHalves halves (factory, classes);
            halves.component->initialize (&halves.context);
            halves.controller->initialize (&halves.context);
            halves.componentPoint->connect (halves.controllerPoint);
            const double value = i % 8 / 8.0;
            halves.controller->setParamNormalized (kTotalGain, value);
            halves.controller->setParamNormalized (kMorph, value);
            good += halves.controller->getParamNormalized (kMorph) == value ? 1 : 0;
            halves.component->terminate ();
            good += halves.controller->getParameterCount () == 0 ? 1 : 0;
            halves.controller->terminate ();
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back (live);
    for (std::thread& thread : threads)
        thread.join ();
    CHECK (good == 2 * kThreads * kLives);
}

TEST_CASE ("Odd hosts: a view of an unknown name is refused")
{
    StripInHost strip;
    for (const char* name : { "Editor", "nonsense", "", static_cast<const char*> (nullptr) })
        CHECK (strip.instance.Controller ().createView (name) == nullptr);
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

    for (int round = 0; round < 3; ++round)
    {
        {
            host::NamedHost context ("loads twice");
            host::PluginInstance first (host::Bundle (path), context);
            host::PluginInstance second (host::Bundle (path), context);
            first.Parameters ().SetNormalized (0, 0.25);
            CHECK (second.Parameters ().Normalized (0) == 0.5); // two instances of one library share nothing
            CHECK (isLoaded ());
            host::Bundle (path).Factory ().setHostContext (nullptr);
        }
        CHECK_FALSE (isLoaded ());

        void* handle = dlopen (library.c_str (), RTLD_LAZY);
        REQUIRE (handle != nullptr);
        const auto symbol = [handle] (const char* name) { return dlsym (handle, name); };
        CHECK (reinterpret_cast<bool (*) (void*)> (symbol ("ModuleEntry")) (handle));
        {
            const auto factory = owned (reinterpret_cast<IPluginFactory* (*)()> (symbol ("GetPluginFactory")) ());
            LooseHalves halves{ VST3::Hosting::PluginFactory (factory) };
            halves.Connect ();
            halves.Play ();
            CHECK (reinterpret_cast<bool (*) ()> (symbol ("ModuleExit")) ());
            halves.EndController ();
            halves.EndComponent ();
        }
        dlclose (handle);
        CHECK_FALSE (isLoaded ());
    }
}
