#pragma once

#include "input.h"
#include <cstdint>

namespace tessaly
{

/// A key as VST 3 hosts tell it: the character that it types, a virtual code (Steinberg::VirtualKeyCodes, 0 for none)
/// and a mask (Steinberg::KeyModifier). VSTGUI's VstKeyCode has the same numbers.
struct HostKey
{
    std::int32_t character = 0;
    std::int32_t virtualCode = 0;
    std::int32_t modifiers = 0;
};

/// The key as panes hear of it. Where a key types a control character, that character decides, whatever the virtual
/// code says. A character that is no single byte is none.
/// @param time  milliseconds
ZKeyInput TranslateKey (const HostKey& host, std::uint32_t time);

} // namespace tessaly
