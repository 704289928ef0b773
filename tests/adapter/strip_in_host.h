#pragma once

#include "hand_run_loop.h"
#include "plugin_instance.h"
#include "pluginterfaces/vst/ivstmessage.h"
#include <array>
#include <cmath>
#include <functional>
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
class ContextReturn
{
public:
    ~ContextReturn () { LoadedBundle ().Factory ().setHostContext (nullptr); }
};

/// Stands between the halves, in place of the peer of one of them.
class Relay final : public Steinberg::Vst::IConnectionPoint
{
public:
    using Notify = std::function<Steinberg::tresult (Steinberg::Vst::IMessage*)>;

    explicit Relay (Notify onMessage)
        : notifyFunction (std::move (onMessage))
    {
    }
    Steinberg::tresult PLUGIN_API connect (IConnectionPoint*) override { return Steinberg::kResultOk; }
    Steinberg::tresult PLUGIN_API disconnect (IConnectionPoint*) override { return Steinberg::kResultOk; }
    Steinberg::tresult PLUGIN_API notify (Steinberg::Vst::IMessage* message) override
    {
        return notifyFunction (message);
    }
    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID, void**) override
    {
        return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef () override { return 1; }
    Steinberg::uint32 PLUGIN_API release () override { return 1; }

private:
    Notify notifyFunction;
};

/// One instance with a record of the controller's calls.
class StripInHost
{
public:
    explicit StripInHost (host::InstanceOptions options = {}, Steinberg::Linux::IRunLoop* loop = nullptr)
        : context ("strip test", loop)
        , instance (LoadedBundle (), context, Listening (std::move (options)))
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
        std::vector<float> in (static_cast<std::size_t> (samples), level);
        std::vector<float> out (in.size ());
        const std::array<const float*, 1> inputs{ in.data () };
        const std::array<float*, 1> outputs{ out.data () };
        instance.Process ({ inputs, outputs, samples, points }, &meters);
        return out;
    }

    std::vector<host::HandlerCall> Calls (host::HandlerCall::Kind kind) const
    {
        std::vector<host::HandlerCall> found;
        for (const auto& call : calls)
            if (call.kind == kind)
                found.push_back (call);
        return found;
    }

    std::vector<host::HandlerCall> calls;
    std::vector<host::ParameterPoint> meters; ///< output points of the last block
    host::NamedHost context;
    ContextReturn contextReturn; // behind the instance's end, ahead of the context's
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

/// Hands a message to one half, as its peer's connection would.
/// @param data  `size` bytes under the attribute of all messages; null leaves the attribute out
inline Steinberg::tresult Send (StripInHost& strip, Steinberg::FUnknown* half, const char* id, const void* data,
                                Steinberg::uint32 size)
{
    Steinberg::TUID iid;
    Steinberg::Vst::IMessage::iid.toTUID (iid);
    Steinberg::Vst::IMessage* raw = nullptr;
    strip.context.createInstance (iid, iid, reinterpret_cast<void**> (&raw));
    const auto message = Steinberg::owned (raw);
    message->setMessageID (id);
    if (data != nullptr)
        message->getAttributes ()->setBinary ("Ptr4", data, size);
    const Steinberg::FUnknownPtr<Steinberg::Vst::IConnectionPoint> point (half);
    return point->notify (message);
}

} // namespace tessaly::test
