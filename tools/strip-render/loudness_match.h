#pragma once

#include "audio_file.h"
#include "level_meter.h"
#include "loudness.h"
#include "sample_spool.h"

#include <filesystem>

namespace tessaly::render
{

/// The gain in dB that makes a result as loud as its recording. Where one of them is silent there is none: 0, and a
/// warning.
double MatchGainDb (const std::filesystem::path& recording, const Loudness& input, const Loudness& output);

/// Writes all that is put by, louder by a linear gain. @return its levels
/// @throws RenderError, Interrupted
LevelMeter WriteLouder (SampleSpool& from, AudioWriter& writer, int channels, double gain);

} // namespace tessaly::render
