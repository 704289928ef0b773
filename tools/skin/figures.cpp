#include "figures.h"

#include "pixel_glyph.h"
#include <array>
#include <cmath>
#include <span>
#include <stdexcept>
#include <string>

namespace tessaly::skin
{

namespace
{

template <std::size_t kRows>
struct Figure
{
    char character;
    std::array<std::uint8_t, kRows> rows;
    std::string_view strokes;
};

// clang-format off

constexpr std::int32_t kScaleWidth = 3;
constexpr Figure<5> kScaleFigures[]{
    { '0', { 7, 5, 5, 5, 7 }, "0020240400" },
    { '1', { 2, 6, 2, 2, 2 }, "011014" },
    { '2', { 7, 1, 7, 4, 7 }, "0020210424" },
    { '3', { 7, 1, 3, 1, 7 }, "00202404 1222" },
    { '4', { 5, 5, 7, 1, 1 }, "000222 2024" },
    { '5', { 7, 4, 7, 1, 7 }, "2000!02!222404" },
    { '6', { 7, 4, 7, 5, 7 }, "200004242202" },
    { '7', { 7, 1, 1, 2, 2 }, "0020!211314" },
    { '8', { 7, 5, 7, 5, 7 }, "0020240400 0222" },
    { '9', { 7, 5, 7, 1, 7 }, "220200202404" },
    { '-', { 0, 0, 6, 0, 0 }, "0212" },
    { 'k', { 4, 5, 6, 5, 5 }, "0004 0212 2112!2324" },
};

constexpr std::int32_t kValueWidth = 4;
constexpr Figure<7> kValueFigures[]{
    { '0', { 0x6, 0x9, 0x9, 0x9, 0x9, 0x9, 0x6 }, "102031352616050110" },
    { '1', { 0x2, 0x6, 0x2, 0x2, 0x2, 0x2, 0x7 }, "112026 1636" },
    { '2', { 0x6, 0x9, 0x1, 0x2, 0x4, 0x8, 0xF }, "01102031320636" },
    { '3', { 0xE, 0x1, 0x1, 0x6, 0x1, 0x1, 0xE }, "0020313223!34352606 1323" },
    { '4', { 0x9, 0x9, 0x9, 0xF, 0x1, 0x1, 0x1 }, "000333 3036" },
    { '5', { 0xF, 0x8, 0xE, 0x1, 0x1, 0x1, 0xE }, "3000!02!2233352606" },
    { '6', { 0x6, 0x8, 0x8, 0xE, 0x9, 0x9, 0x6 }, "20100105162635342303" },
    { '7', { 0xF, 0x1, 0x1, 0x2, 0x2, 0x4, 0x4 }, "0030!311516" },
    { '8', { 0x6, 0x9, 0x9, 0x6, 0x9, 0x9, 0x6 }, "102031322313020110 2334352616050413" },
    { '9', { 0x6, 0x9, 0x9, 0x7, 0x1, 0x1, 0x6 }, "33130201102031352616" },
    { ' ', { 0x0, 0x0, 0x0, 0x0, 0x0, 0x0, 0x0 }, "" },
    { '.', { 0x0, 0x0, 0x0, 0x0, 0x0, 0x6, 0x6 }, "" }, // a disc
    { ',', { 0x0, 0x0, 0x0, 0x0, 0x6, 0x2, 0x4 }, "14242516" },
    { '=', { 0x0, 0x0, 0xF, 0x0, 0x0, 0xF, 0x0 }, "0232 0535" },
    { '/', { 0x1, 0x1, 0x2, 0x2, 0x4, 0x8, 0x8 }, "3006" },
    { 'F', { 0xF, 0x8, 0x8, 0xE, 0x8, 0x8, 0x8 }, "3000!06 0323" },
    { '-', { 0x0, 0x0, 0x0, 0xF, 0x0, 0x0, 0x0 }, "0333" },
    { '+', { 0x0, 0x0, 0x4, 0xE, 0x4, 0x0, 0x0 }, "1214 0323" },
    { 'k', { 0x8, 0x8, 0x9, 0xA, 0xC, 0xA, 0x9 }, "0006 0414 3214!36" },
    { 'I', { 0x7, 0x2, 0x2, 0x2, 0x2, 0x2, 0x7 }, "1030 2026 1636" },
    { 'N', { 0x9, 0xD, 0xD, 0xB, 0xB, 0x9, 0x9 }, "06003630" },
};

// clang-format on

constexpr StrokeStyle kScaleStroke{ 0.8, 0.6 };
constexpr StrokeStyle kValueStroke{ 1.0, 1.1 };
constexpr Point kPointMiddle{ 2, 6 }; // of the decimal point, from the figure's top left
constexpr double kPointRadius = 0.85;

template <std::size_t kRows>
const Figure<kRows>& Find (std::span<const Figure<kRows>> figures, char character)
{
    for (const auto& figure : figures)
        if (figure.character == character)
            return figure;
    throw std::logic_error (std::string ("no figure is drawn for ") + character);
}

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

} // namespace

void WriteScale (Picture& picture, std::string_view text, double x, double top, Anchor anchor, Ink ink)
{
    const double share = anchor == Anchor::kLeft ? 0.0 : anchor == Anchor::kCenter ? 0.5 : 1.0;
    double left = std::floor (x - share * WidthOf (text) + 0.5);
    for (const char character : text)
    {
        const auto& figure = Find<5> (kScaleFigures, character);
        DrawGlyph (picture, { kScaleWidth, figure.rows, figure.strokes }, { left, top }, kScaleStroke, ink);
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
    const auto& figure = Find<7> (kValueFigures, character);
    DrawGlyph (picture, { kValueWidth, figure.rows, figure.strokes }, topLeft, kValueStroke, ink);
}

} // namespace tessaly::skin
