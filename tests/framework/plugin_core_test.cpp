#include "recording_core.h"
#include <array>
#include <doctest/doctest.h>

using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("ZPluginCore: turns silent only when every output sample of a flagged block stays below 2^-30")
{
    CallLog log;
    RecordingCore core (nullptr, log);
    std::array<float, 4> in{ 1, 2, 3, 4 };
    std::array<float, 4> out{};
    float* inputs = in.data ();
    float* outputs = out.data ();
    ZAudioBlock block;
    block.inputs = &inputs;
    block.outputs = &outputs;
    block.numInputChannels = block.numOutputChannels = 1;
    block.numSamples = 4;
    const auto flagsAfter = [&] (float output, std::uint64_t flags = 1)
    {
        core.output = output;
        block.silenceFlags = flags;
        core.ProcessBlock (block);
        core.UpdateSilence (block);
        return block.silenceFlags;
    };

    CHECK (flagsAfter (0x1p-30f) == 0);
    CHECK (flagsAfter (-0x1p-30f) == 0);
    CHECK (flagsAfter (0x1.fffffep-31f) == 1);
    CHECK (flagsAfter (0.5f) == 1); // silent now: the input goes through, the engine rests
    CHECK (out == in);
    CHECK (flagsAfter (0.5f, 0) == 0);
    CHECK (out[0] == 0.5f);
    CHECK (flagsAfter (0.5f) == 0); // sound has ended the silence

    block.symbolicSampleSize = kFloat64;
    CHECK (core.ProcessBlock (block) == 999);
}

TEST_CASE ("ZPluginCore: channel counts are limited to two and made equal")
{
    CallLog log;
    RecordingCore core (nullptr, log);
    std::int32_t in = 3;
    std::int32_t out = 1;
    CHECK (core.NegotiateChannels (&in, &out) == 2);
    CHECK (core.NegotiateChannels (&in, &out) == 0);
    CHECK (core.NegotiateChannels (nullptr, &out) == 0);
    CHECK (log == CallLog{ "channels 2 2", "channels 2 2" });
}
