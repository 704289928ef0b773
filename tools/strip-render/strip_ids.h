#pragma once

#include "pluginterfaces/vst/vsttypes.h"

namespace tessaly::render
{

// The ids of the strip's parameters that this program treats in a way of their own, as hosts see them.

inline constexpr Steinberg::Vst::ParamID kDriveOffsetId = 5;
inline constexpr Steinberg::Vst::ParamID kMakeupAmountId = 6;
inline constexpr Steinberg::Vst::ParamID kMorphId = 20;

inline constexpr Steinberg::Vst::ParamID kGainReductionMeterId = 0x10000000;
inline constexpr Steinberg::Vst::ParamID kOutputMeterId = 0x10000001;

} // namespace tessaly::render
