#pragma once

#include "component_handler.h"
#include "known_ids.h"
#include "named_host.h"
#include "vst3_controller_wrapper.h"
#include "vst3_effect_wrapper.h"
#include <atomic>
#include <doctest/doctest.h>
#include <vector>

namespace tessaly::test
{

inline std::atomic<std::uint32_t> handClockMs = 0; ///< the time of every controller of JoinedHalves

/// Both halves of an instance in the test's own program, connected to one another, by a clock that the test sets.
struct JoinedHalves
{
    explicit JoinedHalves (Steinberg::FUnknown* loop = nullptr, const char* hostName = "joined halves")
        : context (hostName, loop)
    {
        CHECK (processor->initialize (&context) == Steinberg::kResultOk);
        CHECK (controller->initialize (&context) == Steinberg::kResultOk);
        CHECK (controller->setComponentHandler (&handler) == Steinberg::kResultOk);
        Connect ();
        calls.clear (); // what the connection made new
    }
    ~JoinedHalves ()
    {
        Disconnect ();
        controller->terminate ();
        processor->terminate ();
    }
    JoinedHalves (const JoinedHalves&) = delete;
    JoinedHalves& operator= (const JoinedHalves&) = delete;

    void Connect ()
    {
        controller->connect (processor);
        processor->connect (controller);
    }
    void Disconnect () ///< or each keeps the other for ever
    {
        processor->disconnect (controller);
        controller->disconnect (processor);
    }

    ZEffect* Effect () const
    {
        ZEffect* effect = nullptr;
        controller->GetInfo (kCodeEffect, &effect);
        return effect;
    }

    std::vector<Steinberg::Vst::ParamID> Ids (host::HandlerCall::Kind kind) const
    {
        std::vector<Steinberg::Vst::ParamID> ids;
        for (const auto& call : calls)
            if (call.kind == kind)
                ids.push_back (call.id);
        return ids;
    }

    std::vector<host::HandlerCall> calls;
    host::NamedHost context;
    host::ComponentHandler handler{ [this] (const host::HandlerCall& call) { calls.push_back (call); } };
    Steinberg::IPtr<ZVst3EffectWrapper> processor = Steinberg::owned (new ZVst3EffectWrapper);
    Steinberg::IPtr<ZVst3ControllerWrapper> controller =
        Steinberg::owned (new ZVst3ControllerWrapper ([] { return handClockMs.load (); }));
};

} // namespace tessaly::test
