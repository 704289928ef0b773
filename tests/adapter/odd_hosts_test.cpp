#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_in_host.h"
#include "temp_folder.h"
#include <algorithm>
#include <atomic>
#include <dlfcn.h>
#include <doctest/doctest.h>
#include <functional>
#include <latch>
#include <numeric>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

namespace
{

constexpr Vst::ParamID kTotalGain = 17;
constexpr Vst::ParamID kMorph = 20;

/// Both halves as a host makes them from a factory, with no order of calls kept.
struct LooseHalves
{
    using Factory = VST3::Hosting::PluginFactory;

    explicit LooseHalves (const Factory& factory)
        : LooseHalves (factory, factory.classInfos ())
    {
    }
    LooseHalves (const Factory& factory, const Factory::ClassInfos& classes)
        : component (factory.createInstance<Vst::IComponent> (classes[0].ID ()))
        , controller (factory.createInstance<Vst::IEditController> (classes[1].ID ()))
        , processor (component)
        , componentPoint (component)
        , controllerPoint (controller)
    {
    }
    void Initialize (FUnknown* context)
    {
        CHECK (component->initialize (context) == kResultOk);
        CHECK (controller->initialize (context) == kResultOk);
    }
    void Connect ()
    {
        CHECK (componentPoint->connect (controllerPoint) == kResultOk);
        CHECK (controllerPoint->connect (componentPoint) == kResultOk);
    }

    IPtr<Vst::IComponent> component;
    IPtr<Vst::IEditController> controller;
    FUnknownPtr<Vst::IAudioProcessor> processor;
    FUnknownPtr<Vst::IConnectionPoint> componentPoint;
    FUnknownPtr<Vst::IConnectionPoint> controllerPoint;
};

/// Runs a level through without any set-up. @return the block's last sample
float Process (Vst::IAudioProcessor& processor, float level = 0.25f)
{
    std::array<float, 64> samples{};
    samples.fill (level);
    float* channel = samples.data ();
    Vst::AudioBusBuffers bus;
    bus.numChannels = 1;
    bus.channelBuffers32 = &channel;
    Vst::ProcessData data;
    data.numSamples = 64;
    data.numInputs = data.numOutputs = 1;
    data.inputs = data.outputs = &bus;
    CHECK (processor.process (data) == kResultOk);
    return samples.back ();
}

void SetUp (Vst::IAudioProcessor& processor, double rateHz, tresult expected = kResultOk)
{
    Vst::ProcessSetup setup{ Vst::kRealtime, Vst::kSample32, 64, rateHz };
    CHECK (processor.setupProcessing (setup) == expected);
}

/// The begun edits less the ended ones, none of which ends before it begins.
int OpenEdits (const std::vector<host::HandlerCall>& calls)
{
    std::array<int, 22> open{};
    for (const auto& call : calls)
    {
        open[call.id % 22] += call.kind == Kind::beginEdit ? 1 : call.kind == Kind::endEdit ? -1 : 0;
        CHECK (open[call.id % 22] >= 0);
    }
    return std::accumulate (open.begin (), open.end (), 0);
}

} // namespace

TEST_CASE ("Odd hosts: calls left out, repeated or out of order leave an instance that plays and ends well")
{
    struct Order
    {
        std::string name;
        std::function<void (LooseHalves&)> calls;
    };
    const auto active = [] (LooseHalves& halves)
    {
        SetUp (*halves.processor, 48000.0);
        CHECK (halves.component->setActive (true) == kResultOk);
    };
    const std::vector<Order> orders{
        { "deleted without a word", [&] (LooseHalves& halves) { active (halves); } },
        { "terminated while active",
          [&] (LooseHalves& halves)
          {
              active (halves);
              halves.component->terminate ();
              halves.controller->terminate ();
          } },
        { "activated and deactivated twice",
          [&] (LooseHalves& halves)
          {
              halves.component->setActive (false);
              active (halves);
              halves.component->setActive (true);
              Process (*halves.processor);
              halves.component->setActive (false);
              CHECK (halves.component->setActive (false) == kResultOk);
          } },
        { "processing before it is active, or set up", [] (LooseHalves& halves) { Process (*halves.processor); } },
        { "set up anew while active",
          [&] (LooseHalves& halves)
          {
              active (halves);
              Process (*halves.processor);
              SetUp (*halves.processor, 96000.0);
              CHECK (halves.processor->getTailSamples () == 7 * 96000);
              for (const double noRate : { 0.0, -1.0, std::nan (""), HUGE_VAL })
                  SetUp (*halves.processor, noRate);
              CHECK (halves.processor->getTailSamples () == 7 * 96000);
          } },
        { "connected twice, and the effect announced again and again",
          [&] (LooseHalves& halves)
          {
              halves.Connect ();
              CHECK (halves.controller->setParamNormalized (0, 0.25) == kResultOk);
              CHECK (halves.componentPoint->connect (halves.controllerPoint) != kResultOk);
              halves.componentPoint->disconnect (halves.controllerPoint);
              halves.componentPoint->connect (halves.controllerPoint);
              CHECK (halves.controller->getParameterCount () == 24);
              halves.controller->setComponentState (nullptr);
              CHECK (halves.controller->getParamNormalized (0) == 0.25);
              halves.componentPoint->disconnect (halves.controllerPoint); // or each keeps the other for ever
          } },
        { "every message delivered twice, and to both halves",
          [&] (LooseHalves& halves)
          {
              int messages = 0;
              Relay doubling (
                  [&] (Vst::IMessage* message)
                  {
                      ++messages;
                      halves.componentPoint->notify (message);
                      halves.controllerPoint->notify (message);
                      halves.componentPoint->notify (message);
                      return halves.controllerPoint->notify (message);
                  });
              CHECK (halves.componentPoint->connect (&doubling) == kResultOk);
              CHECK (halves.controller->setParamNormalized (0, 0.25) == kResultOk);
              active (halves);
              CHECK (halves.controller->getParamNormalized (0) == 0.25);
              halves.componentPoint->disconnect (&doubling);
              CHECK (halves.controller->getParameterCount () == 0);
              CHECK (messages == 4); // connected, mono, active, disconnected
          } },
        { "terminated and initialized again",
          [&] (LooseHalves& halves)
          {
              halves.Connect ();
              halves.component->terminate ();
              host::NamedHost context ("again");
              CHECK (halves.component->initialize (&context) == kResultOk);
              active (halves);
              CHECK (std::isfinite (Process (*halves.processor)));
              halves.component->terminate ();
          } },
        { "the component gone first",
          [&] (LooseHalves& halves)
          {
              halves.Connect ();
              halves.component->terminate ();
              halves.processor = nullptr;
              halves.component = nullptr;
              CHECK (halves.controller->getParameterCount () == 0);
              CHECK (halves.controller->setParamNormalized (kMorph, 1.0) == kResultFalse);
          } },
        { "the controller gone first",
          [&] (LooseHalves& halves)
          {
              halves.Connect ();
              active (halves);
              halves.controller->terminate ();
              halves.controller = nullptr;
              CHECK (std::isfinite (Process (*halves.processor)));
          } },
        { "used after its end",
          [&] (LooseHalves& halves)
          {
              halves.Connect ();
              halves.component->terminate ();
              halves.component->setActive (true);
              SetUp (*halves.processor, 48000.0);
              Process (*halves.processor);
              CHECK (halves.component->terminate () == kResultOk);
          } },
    };
    host::NamedHost context ("odd host");
    for (const Order& order : orders)
    {
        CAPTURE (order.name);
        LooseHalves halves (LoadedBundle ().Factory ());
        halves.Initialize (&context);
        order.calls (halves);
        if (halves.processor)
            CHECK (std::isfinite (Process (*halves.processor)));
    }
}

TEST_CASE ("Odd hosts: a state set before the halves are connected is what the controller shows afterwards")
{
    StripInHost source;
    source.instance.Parameters ().SetNormalized (kTotalGain, 0.75);
    const auto state = source.instance.SaveState ();

    host::NamedHost context ("early state");
    LooseHalves halves (LoadedBundle ().Factory ());
    halves.Initialize (&context);
    ResizableMemoryIBStream stream (state.size ());
    stream.write (const_cast<std::byte*> (state.data ()), static_cast<int32> (state.size ()), nullptr);
    stream.rewind ();
    CHECK (halves.component->setState (&stream) == kResultOk);
    halves.controller->setComponentState (&stream);
    halves.Connect ();
    CHECK (halves.controller->getParamNormalized (kTotalGain) == 0.75);
    halves.componentPoint->disconnect (halves.controllerPoint);
    halves.controllerPoint->disconnect (halves.componentPoint);
    halves.controller->terminate ();
    halves.component->terminate ();
}

TEST_CASE ("Odd hosts: parameters set one by one before or after the state leave its edits beside the dial alone")
{
    StripInHost source;
    source.instance.Parameters ().SetNormalized (kMorph, 0.375);
    for (const Vst::ParamID id : { 1u, 5u, 10u, 17u })
        source.instance.Parameters ().SetNormalized (id, 0.25);
    const auto state = source.instance.SaveState ();

    for (const bool stateIsLast : { true, false })
    {
        StripInHost strip;
        strip.instance.Parameters ().SetNormalized (kMorph, 0.9);
        const auto setAll = [&]
        {
            for (Vst::ParamID id = 0; id < 22; ++id)
                strip.instance.Parameters ().SetNormalized (id, source.instance.Parameters ().Normalized (id));
        };
        if (stateIsLast)
            setAll ();
        strip.instance.LoadState (state);
        if (!stateIsLast)
            setAll ();
        CHECK (strip.instance.SaveState () == state);
        for (Vst::ParamID id = 0; id < 22; ++id)
            CHECK (strip.instance.Parameters ().Normalized (id) == source.instance.Parameters ().Normalized (id));
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
        controller->setParamNormalized (kMorph, 1.0);
        if (leavesAt == 100)
            controller->setComponentHandler (nullptr);
        controller->setParamNormalized (kMorph, 0.3); // heard by nobody in two of the rounds
        controller->setComponentHandler (&next);
        CHECK (OpenEdits (strip.calls) == 0);
        CHECK (later.empty ());
        controller->setParamNormalized (kMorph, 0.6);
        CHECK (OpenEdits (later) > 10);
        if (leavesAt == 1000)
            controller->terminate (); // a handler that never leaves
        else
            controller->setComponentHandler (nullptr);
        CHECK (OpenEdits (later) == 0);
    }
}

TEST_CASE ("Odd hosts: blocks of any sizes, and a rate that changes between them, sound like one long block")
{
    const auto played = [] (bool inPieces)
    {
        StripInHost strip;
        std::vector<float> sound;
        for (const double rateHz : { 44100.0, 96000.0 })
        {
            strip.instance.Deactivate ();
            strip.Start (Vst::kRealtime, rateHz);
            int left = 4096;
            for (const int size : { 1, 0, 640, 31, 33, 1, 2047, 4096 })
            {
                const auto part = strip.Run (0.7f, inPieces ? std::min (size, left) : left);
                sound.insert (sound.end (), part.begin (), part.end ());
                left -= static_cast<int> (part.size ());
            }
        }
        return sound;
    };
    CHECK (played (true) == played (false));
}

TEST_CASE ("Odd hosts: instances that are made, used and ended on threads of their own do not meet")
{
    const auto& factory = LoadedBundle ().Factory ();
    const auto classes = factory.classInfos (); // once: the SDK converts their texts through one object for all threads
    constexpr int kThreads = 4;
    std::latch start (kThreads); // the first instances of the process at once: what is made only once is made then
    std::atomic<int> good = 0;
    const auto live = [&] (int lives)
    {
        host::NamedHost context ("many threads");
        start.arrive_and_wait ();
        for (int i = 0; i < lives; ++i)
        {
            LooseHalves halves (factory, classes);
            halves.component->initialize (&context);
            halves.controller->initialize (&context);
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
    constexpr int kLives = 50;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back (live, kLives);
    for (std::thread& thread : threads)
        thread.join ();
    CHECK (good == 2 * kThreads * kLives);
}

TEST_CASE ("Odd hosts: a view that there is none of is refused, by any name")
{
    StripInHost strip;
    for (const char* name : { "editor", "Editor", "nonsense", "" })
        CHECK (strip.instance.Controller ().createView (name) == nullptr);
    CHECK (strip.instance.Controller ().createView (nullptr) == nullptr);
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
        if (handle != nullptr)
            dlclose (handle);
        return handle != nullptr;
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
            host::NamedHost context ("exits too early");
            const auto factory = owned (reinterpret_cast<IPluginFactory* (*)()> (symbol ("GetPluginFactory")) ());
            LooseHalves halves{ VST3::Hosting::PluginFactory (factory) };
            halves.Initialize (&context);
            halves.Connect ();
            Process (*halves.processor);
            CHECK (reinterpret_cast<bool (*) ()> (symbol ("ModuleExit")) ());
            halves.controller->terminate ();
            halves.component->terminate ();
        }
        dlclose (handle);
        CHECK_FALSE (isLoaded ());
    }
}
