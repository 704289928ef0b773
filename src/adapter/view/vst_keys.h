#pragma once

#include "native_key.h"
#include <cstdint>

namespace tessaly
{

/// The key that a host hands to a view. @param modifiers  Steinberg::KeyModifier
NativeKey NativeKeyOf (char16_t character, std::int16_t keyCode, std::int16_t modifiers);

} // namespace tessaly
