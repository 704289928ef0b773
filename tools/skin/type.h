#pragma once

#include "picture.h"
#include <string_view>

namespace tessaly::skin
{

enum class Face
{
    kManropeMedium,
    kManropeSemiBold,
    kManropeBold,
    kOpenSansSemiBold
};

struct TextStyle
{
    Face face;
    double size;           // units
    std::int32_t tracking; // units that come after each letter, besides its own advance
};

// The type of the skin. Nothing set in a font is below 8.
inline constexpr TextStyle kHeadingStyle{ Face::kManropeBold, 9, 1 };
inline constexpr TextStyle kBandStyle{ Face::kManropeBold, 9, 0 };
inline constexpr TextStyle kMorphStyle{ Face::kManropeBold, 9, 2 };
inline constexpr TextStyle kCaptionStyle{ Face::kManropeBold, 8, 0 };
inline constexpr TextStyle kSubheadingStyle{ Face::kManropeBold, 8, 1 };
inline constexpr TextStyle kLabelStyle{ Face::kOpenSansSemiBold, 9, 0 };
inline constexpr TextStyle kButtonStyle{ Face::kOpenSansSemiBold, 10, 0 };
inline constexpr TextStyle kNameStyle{ Face::kManropeBold, 13, 2 };
inline constexpr TextStyle kSurnameStyle{ Face::kManropeMedium, 13, 2 };
inline constexpr TextStyle kEditionStyle{ Face::kManropeMedium, 12, 0 };
inline constexpr TextStyle kLensStyle{ Face::kManropeSemiBold, 15, 0 };

enum class Anchor
{
    kLeft,
    kCenter,
    kRight
};

/// Writes with an edge, or the middle, of the ink at `x` and the baseline at `y`; letters begin at whole pixels, but
/// where `y` is none. @return the ink's right edge, in units
double Write (Picture& picture, std::string_view text, const TextStyle& style, double x, double y, Anchor anchor,
              Ink ink);

/// Figures with the middle of their point at `pointX`, so that it stays where it is whatever stands before and after it.
void WriteFigures (Picture& picture, std::string_view text, const TextStyle& style, double pointX, double y, Ink ink);

} // namespace tessaly::skin
