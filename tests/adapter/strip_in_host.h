#pragma once

#include "effect_listener.h"
#include "known_ids.h"
#include "plugin_instance.h"
#include "pluginterfaces/base/funknownimpl.h"
#include "pluginterfaces/vst/ivstmessage.h"
#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_facts.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <doctest/doctest.h>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

/// The built bundle in a host, with what the host hears. One channel, 48 kHz unless a test sets it up anew.
namespace tessaly::test
{

inline const host::Bundle& LoadedBundle ()
{
    static const host::Bundle bundle{ TESSALY_BUNDLE };
    return bundle;
}

/// Takes the host context back from the factory, which outlives each test's context.
struct ContextReturn
{
    ~ContextReturn () { LoadedBundle ().Factory ().setHostContext (nullptr); }
};

/// Stands between the halves, in place of the peer of one of them.
struct Relay final
    : public Steinberg::U::ImplementsNonDestroyable<Steinberg::U::Directly<Steinberg::Vst::IConnectionPoint>>
{
    Steinberg::tresult PLUGIN_API connect (IConnectionPoint*) override { return Steinberg::kResultOk; }
    Steinberg::tresult PLUGIN_API disconnect (IConnectionPoint*) override { return Steinberg::kResultOk; }
    Steinberg::tresult PLUGIN_API notify (Steinberg::Vst::IMessage* message) override { return onMessage (message); }
    std::function<Steinberg::tresult (Steinberg::Vst::IMessage*)> onMessage;
};

/// An editor's ear for the effect, with a record of what it hears.
struct RecordingEditor final : ZEffectListener
{
    bool OnEffectEvent (std::int32_t code, void* data) override
    {
        log += std::to_string (code) + (data == nullptr ? "- " : " ");
        if (code == 5)
            rate = *static_cast<double*> (data);
        else if (code == 9)
            bypasses.push_back (*static_cast<bool*> (data));
        return true;
    }
    bool OnEffectEvent2 (std::int32_t, void*) override { return false; }

    std::string log; ///< the codes; "-" for null data
    std::vector<bool> bypasses;
    double rate = 0.0;
};

/// One channel of a level, processed in place, as a host hands it in.
struct MonoBlock
{
    explicit MonoBlock (float level = 0.25f)
    {
        samples.fill (level);
        bus.numChannels = 1;
        bus.channelBuffers32 = &channel;
        data.numSamples = 64;
        data.numInputs = data.numOutputs = 1;
        data.inputs = data.outputs = &bus;
    }
    std::array<float, 64> samples{};
    float* channel = samples.data ();
    Steinberg::Vst::AudioBusBuffers bus;
    Steinberg::Vst::ProcessData data;
};

inline bool AllFinite (const auto& samples)
{
    return std::ranges::all_of (samples, [] (float sample) { return std::isfinite (sample); });
}

/// One instance with a record of the controller's calls.
class StripInHost
{
public:
    explicit StripInHost (host::InstanceOptions options = {}, Steinberg::FUnknown* loop = nullptr,
                          const std::string& hostName = "strip test")
        : context (hostName, loop)
        , instance (LoadedBundle (), context, Listening (std::move (options)))
    {
    }

    explicit StripInHost (const char* hostName)
        : StripInHost ({}, nullptr, hostName)
    {
    }

    void Start (Steinberg::int32 mode = Steinberg::Vst::kRealtime, double rateHz = 48000.0)
    {
        instance.Setup (rateHz, 4096, mode);
        instance.Activate ();
    }

    /// Runs a constant level through and gives the output back.
    std::vector<float> Run (float level, int samples, std::vector<host::ParameterPoint> points = {})
    {
        std::vector<float> played (static_cast<std::size_t> (samples), level);
        float* const channel = played.data ();
        const float* const input = channel; // in place
        instance.Process ({ { &input, 1 }, { &channel, 1 }, samples, points }, &meters);
        return played;
    }

    double Value (Steinberg::Vst::ParamID id) const { return instance.Parameters ().Normalized (id); }
    Steinberg::tresult Set (Steinberg::Vst::ParamID id, double normalized)
    {
        return instance.Parameters ().SetNormalized (id, normalized);
    }

    /// As hosts do that leave the controller to find out.
    void LoadIntoProcessor (std::vector<std::byte> state) const
    {
        Steinberg::ResizableMemoryIBStream stream;
        stream.write (state.data (), static_cast<Steinberg::int32> (state.size ()), nullptr);
        stream.rewind ();
        CHECK (instance.Component ().setState (&stream) == Steinberg::kResultOk);
    }

    std::vector<host::HandlerCall> Calls (host::HandlerCall::Kind kind) const
    {
        auto found = calls;
        std::erase_if (found, [kind] (const auto& call) { return call.kind != kind; });
        return found;
    }

    std::vector<host::HandlerCall> calls;
    std::vector<host::ParameterPoint> meters; ///< output points of the last block
    host::NamedHost context;
    ContextReturn contextReturn; // after the instance's end, before the context's
    host::PluginInstance instance;

private:
    host::InstanceOptions Listening (host::InstanceOptions options)
    {
        options.onHandlerCall = [this, also = options.onHandlerCall] (const host::HandlerCall& call)
        {
            calls.push_back (call);
            if (also)
                also (call);
        };
        return options;
    }
};

/// The begun edits less the ended ones, none of which ends, or changes a value, before it begins.
inline int OpenEdits (const std::vector<host::HandlerCall>& calls)
{
    std::array<int, kParameterCount> open{};
    for (const auto& call : calls)
    {
        using Kind = host::HandlerCall::Kind;
        open[call.id % kParameterCount] += call.kind == Kind::beginEdit ? 1 : call.kind == Kind::endEdit ? -1 : 0;
        CHECK (open[call.id % kParameterCount] >= (call.kind == Kind::performEdit ? 1 : 0));
    }
    return std::accumulate (open.begin (), open.end (), 0);
}

/// Hands a message to one half, as its peer's connection would.
/// @param data  `size` bytes under the attribute of all messages; null leaves the attribute out
inline Steinberg::tresult Send (Steinberg::FUnknown* half, const char* id, const void* data, Steinberg::uint32 size)
{
    const auto message = Steinberg::owned (new Steinberg::Vst::HostMessage);
    message->setMessageID (id);
    if (data != nullptr)
        message->getAttributes ()->setBinary ("Ptr4", data, size);
    const Steinberg::FUnknownPtr<Steinberg::Vst::IConnectionPoint> point (half);
    return point->notify (message);
}

} // namespace tessaly::test
