#pragma once

#include "picture.h"
#include "type.h"
#include <string_view>

namespace tessaly::skin
{

/// Writes a scale's figures in 3 x 5 pixels of their own, of the characters "0123456789-k". At one pixel a unit they are
/// pixels, denser they are strokes through the pixels' middles. `top` is their first row.
void WriteScale (Picture& picture, std::string_view text, double x, double top, Anchor anchor, Ink ink);

/// The characters of the value font, in its order, each 4 x 7 pixels.
inline constexpr std::string_view kValueCharacters = "0123456789 .,=/F-+kIN";

/// Draws one of them with its top left at this point.
void DrawValueCharacter (Picture& picture, char character, Point topLeft, Ink ink);

} // namespace tessaly::skin
