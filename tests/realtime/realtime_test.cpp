#include "effect_listener.h"
#include "plugin_instance.h"
#include "pluginterfaces/vst/ivstmessage.h"
#include "public.sdk/source/vst/hosting/hostclasses.h"
#include "realtime_guard.h"
#include <array>
#include <cstdlib>
#include <doctest/doctest.h>
#include <limits>
#include <memory>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr int32 kPromised = 512;
constexpr int32 kLongest = 8 * kPromised;
constexpr Vst::ParamID kMorph = 20;

/// The SDK's lists; they take memory for what is added before the block, not for what the plug-in adds.
struct Changes : Vst::ParameterChanges
{
    using ParameterChanges::ParameterChanges;

    bool takesQueues = true; ///< false: has no room for what the plug-in adds
    bool hasGaps = false;    ///< true: every fifth queue is not there

    /// Adds `count` points that run from 0 to 1, beginning anew every seven.
    void Add (Vst::ParamID id, int32 count)
    {
        int32 index = 0;
        Vst::IParamValueQueue* queue = addParameterData (id, index);
        for (int32 i = 0; i < count; ++i)
            queue->addPoint (i, i % 7 / 6.0, index);
    }

    Vst::IParamValueQueue* PLUGIN_API addParameterData (const Vst::ParamID& id, int32& index) override
    {
        return takesQueues ? ParameterChanges::addParameterData (id, index) : nullptr;
    }
    Vst::IParamValueQueue* PLUGIN_API getParameterData (int32 index) override
    {
        return hasGaps && index % 5 == 4 ? nullptr : ParameterChanges::getParameterData (index);
    }
};

/// One block as a host hands it in; each case changes what it is about.
struct Block
{
    Block ()
    {
        in.fill (0.5f);
        inputBus.numChannels = outputBus.numChannels = 1;
        inputBus.channelBuffers32 = &inChannel;
        outputBus.channelBuffers32 = &outChannel;
        data.numSamples = kPromised;
        data.numInputs = data.numOutputs = 1;
        data.inputs = &inputBus;
        data.outputs = &outputBus;
        data.inputParameterChanges = &points;
        data.outputParameterChanges = &meters;
        data.processContext = &context;
    }

    std::array<float, kLongest> in{};
    std::array<float, kLongest> out{};
    float* inChannel = in.data ();
    float* outChannel = out.data ();
    Vst::AudioBusBuffers inputBus;
    Vst::AudioBusBuffers outputBus;
    Changes points{ 32 };
    Changes meters{ 32 };
    Vst::ProcessContext context{};
    Vst::ProcessData data;
};

const std::pair<const char*, void (*) (Block&)> kCases[] = {
    { "a usual block", [] (Block&) {} },
    { "no samples", [] (Block& b) { b.data.numSamples = 0; } },
    { "more samples than were promised", [] (Block& b) { b.data.numSamples = kLongest; } },
    { "no buses", [] (Block& b) { b.data.numInputs = b.data.numOutputs = 0; } },
    { "no channels", [] (Block& b) { b.inputBus.numChannels = b.outputBus.numChannels = 0; } },
    { "null channel lists", [] (Block& b) { b.inputBus.channelBuffers32 = b.outputBus.channelBuffers32 = nullptr; } },
    { "null channels", [] (Block& b) { b.inChannel = b.outChannel = nullptr; } },
    { "doubles", [] (Block& b) { b.data.symbolicSampleSize = Vst::kSample64; } },
    { "in place", [] (Block& b) { b.outChannel = b.inChannel; } },
    { "denormal input", [] (Block& b) { b.in.fill (1e-40f); } },
    { "NaN input", [] (Block& b) { b.in.fill (std::numeric_limits<float>::quiet_NaN ()); } },
    { "no lists", [] (Block& b) { b.data.inputParameterChanges = b.data.outputParameterChanges = nullptr; } },
    { "meters that are not taken", [] (Block& b) { b.meters.takesQueues = false; } },
    { "points of every parameter and of none, with gaps between them",
      [] (Block& b)
      {
          b.points.hasGaps = true;
          for (const Vst::ParamID id : { 22u, 0x0FFFFFFFu, 0x10000000u, 0x20000007u, 0x20000081u, 0x30000000u })
              b.points.Add (id, 3);
          for (Vst::ParamID id = 0; id < 22; ++id)
              b.points.Add (id, 3);
      } },
    { "a morph at every sample", [] (Block& b) { b.points.Add (kMorph, kPromised); } },
    { "ten thousand points",
      [] (Block& b)
      {
          for (Vst::ParamID id = 0; id < 20; ++id)
              b.points.Add (id, 500);
      } },
};

/// Three blocks of a case and a mode, each on a thread of its own: what a thread does on first use counts too.
void CheckBlocks (host::PluginInstance& instance, const char* name, void (*arrange) (Block&), int32 mode)
{
    CAPTURE (name);
    CAPTURE (mode);
    // New designs wait for the audio thread, and fades are on their way.
    instance.Parameters ().SetNormalized (kMorph, mode == Vst::kOffline ? 0.2 : 0.7);
    const auto block = std::make_unique<Block> ();
    block->data.processMode = mode;
    arrange (*block);
    for (int i = 0; i < 3; ++i)
    {
        RealtimeHits hits;
        tresult result = kResultFalse;
        const auto process = [&] { result = instance.Processor ().process (block->data); };
        std::thread ([&] { hits = Seen (process); }).join ();
        CHECK (result == kResultOk);
        CAPTURE (hits.first);
        CHECK (hits.count == 0);
    }
}

} // namespace

TEST_CASE ("process takes no memory, waits for nobody and stays out of the system, whatever the block")
{
    host::NamedHost context{ "realtime_tests" };
    const host::Bundle bundle{ TESSALY_BUNDLE };
    for (const auto& [name, arrange] : kCases)
    {
        host::PluginInstance instance (bundle, context);
        instance.Setup (48000.0, kPromised, Vst::kRealtime);
        instance.Activate ();
        for (const int32 mode : { Vst::kRealtime, Vst::kPrefetch, Vst::kOffline, Vst::kRealtime })
            CheckBlocks (instance, name, arrange, mode);
    }
}

TEST_CASE ("So does it in Ardour while it plays, where points are noted for another thread")
{
    host::NamedHost context{ "Ardour" };
    const host::Bundle bundle{ TESSALY_BUNDLE };
    for (const auto& [name, arrange] : kCases)
    {
        host::PluginInstance instance (bundle, context);
        instance.Setup (48000.0, kLongest, Vst::kRealtime);
        instance.Activate ();
        CheckBlocks (instance, name, arrange, Vst::kRealtime); // too few to be taken for a bounce
    }
}

TEST_CASE ("A value that the host sets takes no lock, with an editor that hears of the effect's bypass, too")
{
    struct Listener final : ZEffectListener
    {
        bool OnEffectEvent (std::int32_t, void*) override { return ++events > 0; }
        bool OnEffectEvent2 (std::int32_t, void*) override { return false; }
        int events = 0;
    };
    host::NamedHost context{ "realtime_tests" };
    const host::Bundle bundle{ TESSALY_BUNDLE };
    host::PluginInstance instance (bundle, context);
    auto& controller = instance.Controller ();
    controller.setParamNormalized (0, 0.1); // memory for the copies of the values is taken once
    const auto set = [&]
    {
        for (const Vst::ParamID id : { 0u, 8u, 0x10000001u, 99u })
            controller.setParamNormalized (id, 0.3);
    };
    CHECK (Seen (set).first == "nothing");

    Listener listener;
    ZEffectListener* const pointer = &listener;
    const auto message = owned (new Vst::HostMessage);
    message->setMessageID ("ConnectEditorPointer");
    message->getAttributes ()->setBinary ("Ptr4", &pointer, sizeof (pointer));
    const FUnknownPtr<Vst::IConnectionPoint> component (&instance.Component ());
    REQUIRE (component->notify (message) == kResultOk);
    instance.Setup (48000.0, kPromised, Vst::kRealtime);
    instance.Activate ();
    const auto block = std::make_unique<Block> ();
    block->points.Add (21, 3);
    listener.events = 0;
    CHECK (Seen ([&] { instance.Processor ().process (block->data); }).first == "nothing");
    CHECK (listener.events == 3);
    message->setMessageID ("DisconnectEditorPointer");
    CHECK (component->notify (message) == kResultOk);
}

TEST_CASE ("the guard sees memory, locks and waits, in this program and in the bundle, and nothing outside of it")
{
    std::mutex mutex;
    void* volatile memory = nullptr;
    CHECK (Seen ([&] { memory = std::malloc (10); }).first == "malloc");
    CHECK (Seen ([&] { std::free (memory); }).first == "free");
    CHECK (Seen ([&] { ::operator delete (::operator new (100)); }).count == 2);
    CHECK (Seen ([&] { const std::scoped_lock lock (mutex); }).first == "pthread_mutex_lock");
    if (SeesAllSystemCalls ())
    {
        pid_t parent = 0;
        CHECK (Seen ([&] { parent = ::getppid (); }).first == "a system call");
        CHECK (parent == ::getppid ());
    }

    host::NamedHost context{ "realtime_tests" };
    const host::Bundle bundle{ TESSALY_BUNDLE };
    host::PluginInstance instance (bundle, context);
    const VST3::UID id = bundle.FirstAudioEffect ().ID ();
    CHECK (Seen ([&] { bundle.Factory ().createInstance<Vst::IComponent> (id); }).first == "malloc");
    CHECK (Seen ([] {}).count == 0);
}
