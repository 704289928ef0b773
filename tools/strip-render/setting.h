#pragma once

#include "pluginterfaces/vst/vsttypes.h"

#include <vector>

namespace tessaly::render
{

/// One parameter set to one value.
struct Setting
{
    Steinberg::Vst::ParamID id;
    double normalized;
};

/// A setting that takes effect at a time of the recording.
struct TimedSetting
{
    double seconds; ///< from the first sample, 0 and up
    Setting setting;
};

/// Leaves the last setting of each parameter, in the order of these. A block holds one queue for each parameter, so of
/// two settings at one sample only the last can be told; the order counts, since one parameter may move others.
std::vector<Setting> LastOfEach (const std::vector<Setting>& settings);

} // namespace tessaly::render
