#pragma once

#include "meter_log.h"
#include "plugin_instance.h"
#include "setting.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace tessaly::render
{

/// The road by which a setting reaches the plug-in.
enum class Road
{
    offline, ///< in the block's own queue, processing offline
    realtime ///< through the controller between two blocks, as while a user listens
};

/// One instance of a mono plug-in for each channel of a recording, all set alike.
class ChannelBank
{
public:
    /// The instances are set up and active.
    /// @param host  not owned: the caller, outlives the bank
    /// @throws HostError when the plug-in refuses
    ChannelBank (const host::Bundle& bundle, host::NamedHost& host, int channels, double sampleRateHz, int blockSize,
                 Road road);

    /// Puts every instance into a stored state, which takes effect at the next block, ahead of its settings.
    /// @throws HostError when the plug-in refuses
    void LoadState (std::span<const std::byte> state);

    /// @return the state of the instances, alike until their first block
    std::vector<std::byte> SaveState () const { return instances.front ()->SaveState (); }

    /// Runs the next block through every instance. The settings take effect at its first sample, in their order, each
    /// parameter in them once.
    /// @param in, out  `frames` frames, channels in turn; frames is up to the block size
    void Process (std::span<const float> in, std::span<float> out, std::span<const Setting> settings);

    /// What the meters showed after the last block, a reading for each channel.
    std::span<const MeterReading> Meters () const { return readings; }

    host::ParameterAccess Parameters () const { return instances.front ()->Parameters (); }

    /// How long the plug-in says that it sounds after its input, in samples.
    std::int64_t TailFrames () const { return instances.front ()->Processor ().getTailSamples (); }

private:
    void ProcessChannel (std::size_t channel, std::span<float> out);

    Road road;
    std::vector<std::unique_ptr<host::PluginInstance>> instances;
    std::vector<MeterReading> readings;
    std::vector<float> input;  // one channel of one block
    std::vector<float> output; // of all channels, one after the other
    std::vector<host::ParameterPoint> points;
    std::vector<host::ParameterPoint> meterPoints;
};

} // namespace tessaly::render
