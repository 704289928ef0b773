#include "effect.h"
#include "recording_core.h"
#include <array>
#include <doctest/doctest.h>
#include <vector>

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

class ParameterLog : public ZEffect
{
public:
    ParameterLog ()
        : ZEffect (nullptr)
    {
    }
    void SetParameter (std::int32_t index, float value) override { Record (log, index, value); }
    CallLog log;
};

} // namespace

TEST_CASE ("ZPluginCore: an offline block applies all points in order, a real-time or 64-bit block none")
{
    ParameterLog effect;
    Bench bench (&effect);
    ZParameterQueue queue;
    queue.Add (3, 7, 0.25f);
    queue.Add (0, 2, 0.5f);
    queue.Add (1, 7, 1.0f);
    bench.block.parameterQueue = &queue;

    for (const auto mode : { kRealTime, kPrefetch })
    {
        bench.block.processMode = mode;
        CHECK (bench.core.ProcessBlock (bench.block) == 0);
        CHECK (effect.log.empty ());
    }
    bench.block.processMode = kOffline;
    CHECK (bench.core.ProcessBlock (bench.block) == 0);
    CHECK (effect.log == CallLog{ "7 0.25", "2 0.5", "7 1" });

    bench.out.fill (9.0f);
    bench.log.clear ();
    bench.block.symbolicSampleSize = kFloat64;
    CHECK (bench.core.ProcessBlock (bench.block) == 999);
    CHECK (bench.core.ProcessBlockBypassed (bench.block) == 999);
    CHECK (bench.log.empty ());
    CHECK (effect.log.size () == 3);
    CHECK (bench.out[0] == 9.0f);
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

TEST_CASE ("ZPluginCore: the bypassed block copies channel 0, also in place")
{
    Bench bench;
    CHECK (bench.core.ProcessBlockBypassed (bench.block) == 0);
    CHECK (bench.out == bench.in);
    bench.block.outputs = bench.block.inputs;
    bench.core.ProcessBlockBypassed (bench.block);
    CHECK (bench.in[3] == 4.0f);
    CHECK (bench.log.empty ());
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
    CHECK (negotiated (2, 3) == std::array<std::int32_t, 3>{ 2, 2, 2 });
    CHECK (bench.log == CallLog{ "channels 2 2", "channels 1 1", "channels 2 2" });
    std::int32_t count = 1;
    CHECK (bench.core.NegotiateChannels (nullptr, &count) == 0);
}

TEST_CASE ("ZParameterQueue: gives points back in their order, beyond what was reserved, and refuses a bad index")
{
    ZParameterQueue queue;
    CHECK (queue.Reserve (2) == 0);
    for (std::int32_t i = 0; i < 100; ++i)
        queue.Add (i, static_cast<std::uint32_t> (2 * i), 0.5f);

    std::int32_t offset = -7;
    std::uint32_t id = 0;
    float value = 0.0f;
    CHECK (queue.GetPoint (99, &offset, &id, &value) == 0);
    CHECK ((offset == 99 && id == 198 && value == 0.5f));
    CHECK (queue.GetPoint (100, &offset, &id, &value) == 999);
    CHECK (queue.GetPoint (-1, &offset, &id, &value) == 999);
}
