#pragma once

#include "native_key.h"
#include "vstgui/lib/vstkeycode.h"
#include <cstdint>

namespace tessaly
{

/// A key record in the toolkit's words. Some characters are keys of their own, whatever the record's code says.
NativeKey NativeKeyOf (const VstKeyCode& code);

/// The record of a key that a host hands to a view. @param modifiers  Steinberg::KeyModifier
VstKeyCode KeyCodeOf (char16_t character, std::int16_t keyCode, std::int16_t modifiers);

} // namespace tessaly
