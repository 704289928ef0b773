#include "value_font.h"

#include "figures.h"

namespace tessaly::skin
{

void DrawValueFont (Picture& picture, std::int32_t column, std::int32_t row)
{
    constexpr Ink kInks[]{ kValue, kLightTouched, kValueOff };
    DrawValueCharacter (picture, kValueCharacters[static_cast<std::size_t> (row)], { 1, 2 }, kInks[column]);
}

} // namespace tessaly::skin
