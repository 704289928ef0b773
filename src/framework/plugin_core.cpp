#include "plugin_core.h"

#include "effect.h"
#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

constexpr double kSilenceThreshold = 0x1p-30; // linear, about -180 dB

/// A host may leave out the memory of a channel, or of all.
bool IsAudible (const ZAudioBlock& block)
{
    for (std::int32_t channel = 0; block.outputs != nullptr && channel < block.numOutputChannels; ++channel)
    {
        const float* samples = block.outputs[channel];
        if (samples != nullptr &&
            std::any_of (samples, samples + std::max (block.numSamples, 0),
                         [] (float sample) { return std::abs (static_cast<double> (sample)) >= kSilenceThreshold; }))
            return true;
    }
    return false;
}

} // namespace

std::int32_t ZPluginCore::SetActive (bool active)
{
    if (active)
        Resume ();
    else
        Suspend ();
    return kOk;
}

void ZPluginCore::ProcessBypassed (float** in, float** out, std::int32_t count)
{
    if (in[0] != out[0])
        std::copy_n (in[0], std::max (count, 0), out[0]);
}

void ZPluginCore::CopyThrough (float** in, float** out, std::int32_t count)
{
    ZPluginCore::ProcessBypassed (in, out, count);
}

std::int32_t ZPluginCore::ProcessBlock (ZAudioBlock& block)
{
    if (block.symbolicSampleSize != kFloat32)
        return kFailed;
    if (block.processMode == kOffline)
        ApplyParameterQueue (block.parameterQueue);

    if (block.silenceFlags != 0 && silent)
        CopyThrough (block.inputs, block.outputs, block.numSamples);
    else
        Process (block.inputs, block.outputs, block.numSamples);
    return kOk;
}

std::int32_t ZPluginCore::ProcessBlockBypassed (ZAudioBlock& block)
{
    if (block.symbolicSampleSize != kFloat32)
        return kFailed;
    if (block.processMode == kOffline)
        ApplyParameterQueue (block.parameterQueue);

    if (silent)
        CopyThrough (block.inputs, block.outputs, block.numSamples);
    else
        ProcessBypassed (block.inputs, block.outputs, block.numSamples);
    return kOk;
}

std::int32_t ZPluginCore::NegotiateChannels (std::int32_t* inputs, std::int32_t* outputs)
{
    constexpr std::int32_t kUnchanged = 0;
    constexpr std::int32_t kChanged = 2;
    if (inputs == nullptr || outputs == nullptr)
        return kUnchanged;

    // The outputs' own limit still counts as a change, though the inputs' count replaces it
    const auto in = std::min (*inputs, GetMaxInputChannels ());
    const bool changed = in != *inputs || *outputs > GetMaxOutputChannels () || in != *outputs;
    SetChannels (in, in);
    *inputs = in;
    *outputs = in;
    return changed ? kChanged : kUnchanged;
}

std::int32_t ZPluginCore::ApplyParameterQueue (ZParameterQueue* queue)
{
    std::int32_t count = 0;
    if (queue == nullptr || effect == nullptr || queue->GetCount (&count) != kOk)
        return kOk;
    for (std::int32_t i = 0; i < count; ++i)
    {
        std::int32_t sampleOffset = 0;
        std::uint32_t id = 0;
        float value = 0.0f;
        if (queue->GetPoint (i, &sampleOffset, &id, &value) == kOk)
            effect->SetParameter (static_cast<std::int32_t> (id), value);
    }
    return kOk;
}

std::int32_t ZPluginCore::GetSideChainChannels (std::int32_t /*mainChannels*/, std::int32_t* count)
{
    *count = 0;
    return kOk;
}

std::int32_t ZPluginCore::UpdateSilence (ZAudioBlock& block)
{
    if (block.silenceFlags == 0)
    {
        silent = false;
        return kOk;
    }
    if (silent)
        return kOk;

    silent = !IsAudible (block);
    if (!silent)
        block.silenceFlags = 0;
    return kOk;
}

} // namespace tessaly
