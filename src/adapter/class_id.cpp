#include "class_id.h"

#include "ascii_case.h"
#include "plugin_config.h"
#include <string>

namespace tessaly
{

namespace
{

void AppendHex (std::string& text, std::uint32_t value, int digits)
{
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += "0123456789ABCDEF"[(value >> shift) & 0xF];
}

std::uint32_t LowerCaseByte (std::string_view name, std::size_t index)
{
    if (index >= name.size ())
        return 0;
    return static_cast<unsigned char> (AsciiLower (name[index]));
}

} // namespace

Steinberg::FUID MakeClassId (std::uint32_t fourCharacterId, std::string_view name, bool isController)
{
    constexpr std::uint32_t kController = 0x565345; // "VSE"
    constexpr std::uint32_t kProcessor = 0x565354;  // "VST"
    std::string digits;
    AppendHex (digits, isController ? kController : kProcessor, 6);
    AppendHex (digits, fourCharacterId, 8);
    for (std::size_t i = 0; i < 9; ++i)
        AppendHex (digits, LowerCaseByte (name, i), 2);
    Steinberg::FUID id;
    id.fromString (digits.c_str ());
    return id;
}

Steinberg::FUID ProcessorClassId ()
{
    return MakeClassId (config::kFourCharacterId, config::kClassIdName, false);
}

Steinberg::FUID ControllerClassId ()
{
    return MakeClassId (config::kFourCharacterId, config::kClassIdName, true);
}

} // namespace tessaly
