#pragma once

#include "geometry.h"
#include <cstdint>

namespace tessaly::skin
{

/// A colour and how much of it covers what lies below.
struct Ink
{
    ZColor color;
    double alpha = 1.0;

    Ink At (double share) const { return { color, alpha * share }; }
};

constexpr Ink Hex (std::uint32_t rgb)
{
    return { { static_cast<std::uint8_t> (rgb >> 16U), static_cast<std::uint8_t> (rgb >> 8U & 255U),
               static_cast<std::uint8_t> (rgb & 255U) } };
}

/// Linear in the bytes, as they are: all shades of the skin were chosen so.
constexpr Ink Mix (Ink a, Ink b, double t)
{
    const auto part = [t] (std::uint8_t from, std::uint8_t to)
    { return static_cast<std::uint8_t> (from + (to - from) * t + 0.5); };
    return { { part (a.color.red, b.color.red), part (a.color.green, b.color.green),
               part (a.color.blue, b.color.blue) } };
}

// Every colour of the skin. Cool light means signal, brightness means touch, amber means an exception.

// Surfaces
inline constexpr Ink kPlate = Hex (0x1E2A33);
inline constexpr Ink kBench = Hex (0x131B22); // header and about picture, too
inline constexpr Ink kGlass = Hex (0x090F14); // screens, wells, tracks, beds of meters
inline constexpr Ink kEdgeLight = Hex (0x364954);
inline constexpr Ink kEdgeDark = Hex (0x0B1116);
inline constexpr Ink kBenchEdge = Hex (0x41555F);
inline constexpr Ink kUnlitTrack = Hex (0x1A2831); // of the morph dial

// On glass
inline constexpr Ink kGrid = Hex (0x16222A);
inline constexpr Ink kGridMain = Hex (0x293A44); // zero and decades
inline constexpr Ink kUnity = Hex (0x3A4E59);

// Ink
inline constexpr Ink kLabel = Hex (0xA6B9C3);
inline constexpr Ink kHeading = Hex (0xE0EBEF);
inline constexpr Ink kScale = Hex (0x8299A5); // figures of scales, band glyphs
inline constexpr Ink kMinorTick = Hex (0x5C707B);
inline constexpr Ink kValue = Hex (0xC4D7DE);
inline constexpr Ink kValueOff = Hex (0x55656F);
inline constexpr Ink kLabelOff = Hex (0x54656F);
inline constexpr Ink kShapeOff = Hex (0x33414A);
inline constexpr Ink kUnselected = Hex (0x8CA1AD); // positions of the knee switch
inline constexpr Ink kWhite = Hex (0xFFFFFF);

// Light
inline constexpr Ink kCurve = Hex (0x00748A);
inline constexpr Ink kLightRest = Hex (0x1BA3B8);
inline constexpr Ink kLightTouched = Hex (0x67FEFF);
inline constexpr Ink kFigure = Hex (0xABF0FB); // lens figure, name, top of the gain reduction meter
inline constexpr Ink kAmber = Hex (0xFFB454);

// Metal
inline constexpr Ink kRimLight = Hex (0xC6D7DF);
inline constexpr Ink kFacetDark = Hex (0x1F2D36);
inline constexpr Ink kFacetLight = Hex (0xA6BCC7);
inline constexpr Ink kShadow = Hex (0x05090C);

} // namespace tessaly::skin
