#include "channel_bank.h"

#include "simd_clones.h"
#include "strip_ids.h"

namespace tessaly::render
{

namespace
{

constexpr std::size_t kStereo = 2; // a stride that the compiler knows becomes SIMD

TESSALY_SIMD_CLONES void TakeChannel (std::span<const float> frames, std::size_t channel, std::size_t channels,
                                      std::span<float> samples)
{
    if (channels == kStereo)
        for (std::size_t i = 0; i < samples.size (); ++i)
            samples[i] = frames[i * kStereo + channel];
    else
        for (std::size_t i = 0; i < samples.size (); ++i)
            samples[i] = frames[i * channels + channel];
}

/// @param samples  all of the first channel, then all of the next
TESSALY_SIMD_CLONES void Interleave (std::span<const float> samples, std::size_t channels, std::span<float> frames)
{
    const std::size_t count = frames.size () / channels;
    if (channels == kStereo)
        for (std::size_t i = 0; i < count; ++i)
        {
            frames[i * kStereo] = samples[i];
            frames[i * kStereo + 1] = samples[count + i];
        }
    else
        for (std::size_t channel = 0; channel < channels; ++channel)
            for (std::size_t i = 0; i < count; ++i)
                frames[i * channels + channel] = samples[channel * count + i];
}

} // namespace

ChannelBank::ChannelBank (const host::Bundle& bundle, host::NamedHost& host, int channels, double sampleRateHz,
                          int blockSize, Road settingsRoad)
    : road (settingsRoad)
    , readings (static_cast<std::size_t> (channels))
    , input (static_cast<std::size_t> (blockSize))
    , output (readings.size () * input.size ())
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
        TakeChannel (in, channel, channels, std::span (input).first (frames));
        ProcessChannel (channel, std::span (output).subspan (channel * frames, frames));
    }
    Interleave (output, channels, out.first (in.size ()));
}

void ChannelBank::ProcessChannel (std::size_t channel, std::span<float> out)
{
    const float* const inputs[]{ input.data () };
    float* const outputs[]{ out.data () };
    const auto frames = static_cast<Steinberg::int32> (out.size ());
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
