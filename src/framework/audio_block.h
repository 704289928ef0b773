#pragma once

#include <cstdint>

namespace tessaly
{

class ZParameterQueue;

/// Process modes of a block.
enum ProcessMode : std::int32_t
{
    kRealTime = 0,
    kPrefetch = 1,
    kOffline = 2
};

/// Sample formats of a block; the core takes the first only.
enum SampleSize : std::int32_t
{
    kFloat32 = 0,
    kFloat64 = 1
};

/// One audio block on its way from the host to the core. Built afresh on the stack for every block; owns nothing.
struct ZAudioBlock
{
    std::int32_t processMode = kRealTime;
    std::int32_t symbolicSampleSize = kFloat32;
    float** inputs = nullptr;    // numInputChannels arrays of numSamples; not owned: the host
    float** outputs = nullptr;   // numOutputChannels arrays of numSamples; not owned: the host
    float** sideChain = nullptr; // null without a side-chain bus; not owned: the host
    std::int32_t numInputChannels = 0;
    std::int32_t numOutputChannels = 0;
    std::int32_t numSideChainChannels = 0;
    std::int32_t numSamples = 0;
    std::uint64_t silenceFlags = 0; // a bit a channel; in: of the main input bus, out: of the main output bus
    bool sideChainActive = false;
    ZParameterQueue* parameterQueue = nullptr; // points of this block, may be null; not owned: the adapter
};

} // namespace tessaly
