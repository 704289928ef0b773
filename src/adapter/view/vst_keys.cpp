#include "vst_keys.h"

#include "key_translation.h"
#include "pluginterfaces/base/keycodes.h"

namespace tessaly
{

NativeKey NativeKeyOf (const VstKeyCode& code)
{
    const auto translated = TranslateKey ({ code.character, code.virt, code.modifier });
    NativeKey key;
    key.key = translated.key;
    key.character = static_cast<char32_t> (translated.character);
    key.modifiers = translated.modifiers;
    return key;
}

VstKeyCode KeyCodeOf (char16_t character, std::int16_t keyCode, std::int16_t modifiers)
{
    using namespace Steinberg;
    VstKeyCode code{};
    code.virt = static_cast<unsigned char> (keyCode);
    code.character = character != 0 ? character : VirtualKeyCodeToChar (code.virt);
    // The host's words: "command" is the control key here, "control" the one with the system's sign.
    code.modifier = static_cast<unsigned char> (((modifiers & kShiftKey) != 0 ? MODIFIER_SHIFT : 0) |
                                                ((modifiers & kAlternateKey) != 0 ? MODIFIER_ALTERNATE : 0) |
                                                ((modifiers & kCommandKey) != 0 ? MODIFIER_CONTROL : 0) |
                                                ((modifiers & kControlKey) != 0 ? MODIFIER_COMMAND : 0));
    return code;
}

} // namespace tessaly
