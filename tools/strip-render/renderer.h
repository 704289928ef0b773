#pragma once

#include "audio_file.h"
#include "channel_bank.h"
#include "level_meter.h"
#include "level_trace.h"
#include "loudness_meter.h"
#include "meter_log.h"
#include "sample_sink.h"
#include "setting.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tessaly::render
{

/// What is to happen in a render besides the samples going through.
struct RenderPlan
{
    int blockSize = 512; ///< frames, 1 and up
    double mix = 1.0;    ///< part of the strip in the result, the rest being the input; 0 to 1
    bool showsProgress = true;
    std::int64_t tailFrames = 0;          ///< silence that follows the recording
    std::vector<Setting> settings;        ///< before the first sample
    std::vector<TimedSetting> automation; ///< by time
};

/// Who else is to see what goes by. Any may be null; not owned: the caller's.
struct RenderWitnesses
{
    MeterLog* meters = nullptr;
    LevelTrace* levels = nullptr;
    LoudnessMeter* inputLoudness = nullptr; ///< of the recording without the tail
    LoudnessMeter* outputLoudness = nullptr;
};

/// What came of it.
struct RenderResult
{
    std::int64_t frames = 0; ///< written, the tail included
    LevelMeter input;        ///< of the recording without the tail
    LevelMeter output;
    double largestGainReductionDb = 0.0; ///< of all channels and blocks, as the meters show it
    std::size_t automationLeft = 0;      ///< rows whose time comes after the last sample
    std::string damageFound;             ///< of a recording that is damaged; empty for a whole one
};

/// Runs the whole recording through the bank. Blocks end at multiples of the block size, and besides before each sample
/// at which a row of automation takes effect, so that both roads of a setting reach the same sample.
/// @throws RenderError, HostError, Interrupted; what the sink has is then to be thrown away
RenderResult Render (AudioReader& reader, SampleSink& sink, ChannelBank& bank, const RenderPlan& plan,
                     const RenderWitnesses& witnesses);

} // namespace tessaly::render
