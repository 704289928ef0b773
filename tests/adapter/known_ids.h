#pragma once

#include "pluginterfaces/vst/vsttypes.h"

namespace tessaly::test
{

// Ids that projects hold for good.
inline constexpr Steinberg::Vst::ParamID kDrive = 0;
inline constexpr Steinberg::Vst::ParamID kAttack = 1;
inline constexpr Steinberg::Vst::ParamID kMidGain = 13;
inline constexpr Steinberg::Vst::ParamID kTotalGain = 17;
inline constexpr Steinberg::Vst::ParamID kMorph = 20;
inline constexpr Steinberg::Vst::ParamID kBypass = 21;
inline constexpr Steinberg::Vst::ParamID kReductionMeter = 0x10000000;
inline constexpr Steinberg::Vst::ParamID kOutputMeter = 0x10000001;

} // namespace tessaly::test
