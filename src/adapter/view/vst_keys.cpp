#include "vst_keys.h"

#include "key_translation.h"
#include "pluginterfaces/base/keycodes.h"

namespace tessaly
{

namespace
{

/// Hosts say "command" for the control key here, and "control" for the one with the system's sign.
std::int32_t SwapControl (std::int32_t modifiers)
{
    using namespace Steinberg;
    return (modifiers & (kShiftKey | kAlternateKey)) | ((modifiers & kCommandKey) != 0 ? kControlKey : 0) |
           ((modifiers & kControlKey) != 0 ? kCommandKey : 0);
}

} // namespace

NativeKey NativeKeyOf (char16_t character, std::int16_t keyCode, std::int16_t modifiers)
{
    const auto code = static_cast<Steinberg::uint8> (keyCode);
    const std::int32_t typed = character != 0 ? character : Steinberg::VirtualKeyCodeToChar (code);
    const auto key = TranslateKey ({ typed, code, SwapControl (modifiers) });
    return { static_cast<char32_t> (key.character), key.key, key.modifiers };
}

} // namespace tessaly
