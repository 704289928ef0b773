#include "channel_bank.h"

#include "strip_ids.h"

namespace tessaly::render
{

ChannelBank::ChannelBank (const host::Bundle& bundle, host::NamedHost& host, int channels, double sampleRateHz,
                          int blockSize, Road settingsRoad)
    : road (settingsRoad)
    , readings (static_cast<std::size_t> (channels))
    , input (static_cast<std::size_t> (blockSize))
    , output (static_cast<std::size_t> (blockSize))
{
    const auto mode = road == Road::offline ? Steinberg::Vst::kOffline : Steinberg::Vst::kRealtime;
    for (int i = 0; i < channels; ++i)
    {
        instances.push_back (std::make_unique<host::PluginInstance> (bundle, host));
        instances.back ()->Setup (sampleRateHz, blockSize, mode);
        instances.back ()->Activate ();
    }
}

void ChannelBank::LoadState (std::span<const std::byte> state)
{
    for (const auto& instance : instances)
        instance->LoadState (state);
}

void ChannelBank::Process (std::span<const float> in, std::span<float> out, std::span<const Setting> settings)
{
    const std::size_t channels = instances.size ();
    const std::size_t frames = in.size () / channels;

    points.clear ();
    if (road == Road::offline)
        for (const Setting& setting : settings)
            points.push_back ({ setting.id, setting.normalized });
    else
        for (const auto& instance : instances)
            for (const Setting& setting : settings)
                instance->Parameters ().SetNormalized (setting.id, setting.normalized);

    for (std::size_t channel = 0; channel < channels; ++channel)
    {
        for (std::size_t i = 0; i < frames; ++i)
            input[i] = in[i * channels + channel];
        ProcessChannel (channel, static_cast<Steinberg::int32> (frames));
        for (std::size_t i = 0; i < frames; ++i)
            out[i * channels + channel] = output[i];
    }
}

void ChannelBank::ProcessChannel (std::size_t channel, Steinberg::int32 frames)
{
    const float* const inputs[]{ input.data () };
    float* const outputs[]{ output.data () };
    instances[channel]->Process ({ .inputs = inputs, .outputs = outputs, .numSamples = frames, .points = points },
                                 &meterPoints);
    for (const host::ParameterPoint& point : meterPoints)
    {
        if (point.id == kGainReductionMeterId)
            readings[channel].SetGainReduction (point.value);
        else if (point.id == kOutputMeterId)
            readings[channel].SetOutput (point.value);
    }
}

} // namespace tessaly::render
