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

/// A key as panes hear of it: a code of Key, a mask of Modifier, and the character, 0 for none; one beyond ASCII still has
/// to be told to a pane as bytes of UTF-8.
struct TranslatedKey
{
    std::int32_t character = 0;
    std::int32_t key = kKeyNone;
    std::int32_t modifiers = 0;
};

/// Where the host tells a control character, that character decides the key, whatever the virtual code says.
TranslatedKey TranslateKey (const HostKey& host);

} // namespace tessaly
