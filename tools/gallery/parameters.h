#pragma once

#include "parameter_storage_base.h"
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly::gallery
{

/// The parameters of the gallery, by index in its storage: mostly one for each kind of control.
enum Parameter : std::int32_t
{
    kGain,
    kPan,
    kShape,
    kPolarity,
    kLevel,
    kDepth,
    kBlend,
    kSlope,
    kTap,
    kStamp,
    kPad,
    kLatch2,
    kLatch3,
    kLatch4,
    kBand,
    kPitch,
    kTime,
    kRatio,
    kNote,
    kWave,
    kPower,
    kParameterCount
};

/// Fills an empty storage with these parameters at their defaults.
void FillParameters (ZParameterStorageBase& storage);

/// A value as it is typed. For ZTextEdit::SetValueToText.
void TextWithoutUnit (float plain, char* buffer);

/// @param name  in any case. @return its index, or -1
std::int32_t FindParameter (const ZParameterStorageBase& storage, std::string_view name);
std::string NameOf (const ZParameterStorageBase& storage, std::int32_t index);
std::string ValueTextOf (const ZParameterStorageBase& storage, std::int32_t index);

} // namespace tessaly::gallery
