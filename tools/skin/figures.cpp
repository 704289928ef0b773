#include "figures.h"

#include "pixel_glyph.h"
#include <array>
#include <cmath>
#include <stdexcept>
#include <string>

namespace tessaly::skin
{

namespace
{

// clang-format off

constexpr std::int32_t kScaleWidth = 3;
constexpr std::string_view kScaleCharacters = "0123456789-k";
constexpr std::array<std::array<std::uint8_t, 5>, 12> kScaleRows { {
    { 7, 5, 5, 5, 7 }, { 2, 6, 2, 2, 2 }, { 7, 1, 7, 4, 7 }, { 7, 1, 3, 1, 7 }, { 5, 5, 7, 1, 1 }, { 7, 4, 7, 1, 7 },
    { 7, 4, 7, 5, 7 }, { 7, 1, 1, 2, 2 }, { 7, 5, 7, 5, 7 }, { 7, 5, 7, 1, 7 }, { 0, 0, 6, 0, 0 }, { 4, 5, 6, 5, 5 },
} };

constexpr std::int32_t kValueWidth = 4;
constexpr std::array<std::array<std::uint8_t, 7>, kValueCharacters.size ()> kValueRows { {
    { 0x6, 0x9, 0x9, 0x9, 0x9, 0x9, 0x6 }, { 0x2, 0x6, 0x2, 0x2, 0x2, 0x2, 0x7 }, { 0x6, 0x9, 0x1, 0x2, 0x4, 0x8, 0xF },
    { 0xE, 0x1, 0x1, 0x6, 0x1, 0x1, 0xE }, { 0x9, 0x9, 0x9, 0xF, 0x1, 0x1, 0x1 }, { 0xF, 0x8, 0xE, 0x1, 0x1, 0x1, 0xE },
    { 0x6, 0x8, 0x8, 0xE, 0x9, 0x9, 0x6 }, { 0xF, 0x1, 0x1, 0x2, 0x2, 0x4, 0x4 }, { 0x6, 0x9, 0x9, 0x6, 0x9, 0x9, 0x6 },
    { 0x6, 0x9, 0x9, 0x7, 0x1, 0x1, 0x6 }, { 0x0, 0x0, 0x0, 0x0, 0x0, 0x0, 0x0 }, { 0x0, 0x0, 0x0, 0x0, 0x0, 0x6, 0x6 },
    { 0x0, 0x0, 0x0, 0x0, 0x6, 0x2, 0x4 }, { 0x0, 0x0, 0xF, 0x0, 0x0, 0xF, 0x0 }, { 0x1, 0x1, 0x2, 0x2, 0x4, 0x8, 0x8 },
    { 0xF, 0x8, 0x8, 0xE, 0x8, 0x8, 0x8 }, { 0x0, 0x0, 0x0, 0xF, 0x0, 0x0, 0x0 }, { 0x0, 0x0, 0x4, 0xE, 0x4, 0x0, 0x0 },
    { 0x8, 0x8, 0x9, 0xA, 0xC, 0xA, 0x9 }, { 0x7, 0x2, 0x2, 0x2, 0x2, 0x2, 0x7 }, { 0x9, 0xD, 0xD, 0xB, 0xB, 0x9, 0x9 },
} };

// clang-format on

constexpr StrokeStyle kScaleStroke{ 0.8, 0.6 };
constexpr StrokeStyle kValueStroke{ 1.0, 1.1 };
constexpr Point kPointMiddle{ 2, 6 }; // of the decimal point, from the glyph's top left
constexpr double kPointRadius = 0.85;

double AdvanceOf (char character)
{
    return character == '-' ? 3.0 : 4.0;
}

double WidthOf (std::string_view text)
{
    double width = 0.0;
    for (const char character : text)
        width += AdvanceOf (character);
    return width - 1.0; // the gap after the last
}

std::size_t IndexOf (std::string_view characters, char character)
{
    const auto index = characters.find (character);
    if (index == std::string_view::npos)
        throw std::logic_error (std::string ("no figure is drawn for ") + character);
    return index;
}

} // namespace

void WriteScale (Picture& picture, std::string_view text, double x, double top, Anchor anchor, Ink ink)
{
    const double share = anchor == Anchor::kLeft ? 0.0 : anchor == Anchor::kCenter ? 0.5 : 1.0;
    double left = std::floor (x - share * WidthOf (text) + 0.5);
    for (const char character : text)
    {
        const auto& rows = kScaleRows[IndexOf (kScaleCharacters, character)];
        DrawGlyph (picture, { kScaleWidth, rows }, { left, top }, kScaleStroke, ink);
        left += AdvanceOf (character);
    }
}

void DrawValueCharacter (Picture& picture, char character, Point topLeft, Ink ink)
{
    if (character == '.' && picture.Density () > 1.0)
    {
        picture.Disc ({ topLeft.x + kPointMiddle.x, topLeft.y + kPointMiddle.y }, kPointRadius, ink);
        return;
    }
    const auto& rows = kValueRows[IndexOf (kValueCharacters, character)];
    DrawGlyph (picture, { kValueWidth, rows }, topLeft, kValueStroke, ink);
}

} // namespace tessaly::skin
