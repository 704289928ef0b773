#include "effect.h"
#include "recording_core.h"
#include <array>
#include <doctest/doctest.h>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// A core with one channel of four samples around it.
struct Bench
{
    explicit Bench (ZEffect* owner = nullptr)
        : core (owner, log)
    {
        block.inputs = ins.data ();
        block.outputs = outs.data ();
        block.numInputChannels = block.numOutputChannels = 1;
        block.numSamples = 4;
    }

    CallLog log;
    std::array<float, 4> in{ 1, 2, 3, 4 };
    std::array<float, 4> out{ 9, 9, 9, 9 };
    std::array<float*, 1> ins{ in.data () };
    std::array<float*, 1> outs{ out.data () };
    ZAudioBlock block;
    RecordingCore core;
};

} // namespace

TEST_CASE ("ZPluginCore: an offline block applies all points in order, a real-time or 64-bit block none")
{
    class ParameterLog : public ZEffect
    {
    public:
        using ZEffect::ZEffect;
        void SetParameter (std::int32_t index, float value) override { Record (log, index, value); }
        CallLog log;
    };
    ParameterLog effect (nullptr);
    Bench bench (&effect);
    ZParameterQueue queue;
    queue.Add (3, 7, 0.25f);
    queue.Add (0, 2, 0.5f);
    bench.block.parameterQueue = &queue;
    for (const auto mode : { kRealTime, kPrefetch, kOffline })
    {
        CHECK (effect.log.empty ());
        bench.block.processMode = mode;
        CHECK (bench.core.ProcessBlock (bench.block) == 0);
    }
    bench.block.symbolicSampleSize = kFloat64;
    CHECK (bench.core.ProcessBlock (bench.block) == 999);
    CHECK (effect.log == CallLog{ "7 0.25", "2 0.5" });

    std::int32_t offset = 0;
    std::uint32_t id = 0;
    float value = 0.0f;
    for (const auto bad : { -1, 2 })
        CHECK (queue.GetPoint (bad, &offset, &id, &value) == 999);
}

TEST_CASE ("ZPluginCore: turns silent only when every output sample of a flagged block stays below 2^-30")
{
    Bench bench;
    auto flagsAfter = [&bench] (float output)
    {
        bench.core.output = output;
        bench.block.silenceFlags = 1;
        bench.core.ProcessBlock (bench.block);
        bench.core.UpdateSilence (bench.block);
        return bench.block.silenceFlags;
    };
    CHECK (flagsAfter (0x1p-30f) == 0);
    CHECK (flagsAfter (-0x1p-30f) == 0);
    CHECK (bench.out[0] == -0x1p-30f);
    CHECK (flagsAfter (0x1.fffffep-31f) == 1);
    CHECK (flagsAfter (0.5f) == 1); // silent now: the input goes through, the engine rests
    CHECK (bench.out == bench.in);

    bench.block.silenceFlags = 0;
    bench.core.ProcessBlock (bench.block);
    bench.core.UpdateSilence (bench.block);
    CHECK (bench.out[0] == 0.5f);
    CHECK (flagsAfter (0.5f) == 0); // sound has ended the silence
}

TEST_CASE ("ZPluginCore: channel counts are limited to two and made equal")
{
    Bench bench;
    auto negotiated = [&bench] (std::int32_t in, std::int32_t out)
    {
        const auto result = bench.core.NegotiateChannels (&in, &out);
        return std::array<std::int32_t, 3>{ in, out, result };
    };
    CHECK (negotiated (3, 1) == std::array<std::int32_t, 3>{ 2, 2, 2 });
    CHECK (negotiated (1, 1) == std::array<std::int32_t, 3>{ 1, 1, 0 });
    CHECK (bench.log == CallLog{ "channels 2 2", "channels 1 1" });
    std::int32_t count = 1;
    CHECK (bench.core.NegotiateChannels (nullptr, &count) == 0);
}
