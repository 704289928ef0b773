#pragma once

#include "pluginterfaces/vst/ivstparameterchanges.h"
#include <array>

/// A host's lists of points that take no memory, for both directions.
namespace tessaly::test
{

/// One parameter's points: `count` of them run from 0 to 1, beginning anew every seven.
class FixedQueue final : public Steinberg::Vst::IParamValueQueue
{
public:
    Steinberg::Vst::ParamID id = 0;
    Steinberg::int32 count = 0;

    Steinberg::Vst::ParamID PLUGIN_API getParameterId () override { return id; }
    Steinberg::int32 PLUGIN_API getPointCount () override { return count; }
    Steinberg::tresult PLUGIN_API getPoint (Steinberg::int32 index, Steinberg::int32& sampleOffset,
                                            Steinberg::Vst::ParamValue& value) override
    {
        sampleOffset = index;
        value = index % 7 / 6.0;
        return Steinberg::kResultOk;
    }
    Steinberg::tresult PLUGIN_API addPoint (Steinberg::int32, Steinberg::Vst::ParamValue, Steinberg::int32&) override
    {
        return Steinberg::kResultOk;
    }
    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID, void**) override
    {
        return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef () override { return 1; }
    Steinberg::uint32 PLUGIN_API release () override { return 1; }
};

class FixedChanges final : public Steinberg::Vst::IParameterChanges
{
public:
    bool takesQueues = true; ///< false: has no room for what the plug-in adds
    bool hasGaps = false;    ///< true: every fifth queue is not there

    FixedQueue* Add (Steinberg::Vst::ParamID id, Steinberg::int32 count)
    {
        auto& queue = queues[used++ % queues.size ()];
        queue.id = id;
        queue.count = count;
        return &queue;
    }

    Steinberg::int32 PLUGIN_API getParameterCount () override { return static_cast<Steinberg::int32> (used); }
    Steinberg::Vst::IParamValueQueue* PLUGIN_API getParameterData (Steinberg::int32 index) override
    {
        return hasGaps && index % 5 == 4 ? nullptr : &queues[static_cast<std::size_t> (index)];
    }
    Steinberg::Vst::IParamValueQueue* PLUGIN_API addParameterData (const Steinberg::Vst::ParamID& id,
                                                                   Steinberg::int32&) override
    {
        return takesQueues ? Add (id, 0) : nullptr;
    }
    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID, void**) override
    {
        return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef () override { return 1; }
    Steinberg::uint32 PLUGIN_API release () override { return 1; }

private:
    std::array<FixedQueue, 32> queues;
    std::size_t used = 0;
};

} // namespace tessaly::test
