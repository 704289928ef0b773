#pragma once

#include "pluginterfaces/vst/vsttypes.h"
#include <array>

namespace tessaly
{

/// Widens 8-bit text to UTF-16 byte by byte, at most 127 characters and a terminator.
void Widen (const char* text, Steinberg::Vst::String128 out);

/// Narrows UTF-16 to 8-bit text by dropping the high byte, at most 255 characters and a terminator.
/// A null text reads as empty.
void Narrow (const Steinberg::Vst::TChar* text, std::array<char, 256>& out);

} // namespace tessaly
