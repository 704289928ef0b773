#pragma once

#include "geometry.h"

namespace tessaly::gallery
{

// Colours of the gallery, picked by eye for a dark panel.
inline constexpr ZColor kPanelColor{ 38, 41, 46 };
inline constexpr ZColor kCellColor{ 47, 51, 57 };
inline constexpr ZColor kCellEdge{ 61, 66, 74 };
inline constexpr ZColor kGroove{ 24, 26, 29 };
inline constexpr ZColor kFace{ 84, 90, 100 }; // of knobs and buttons
inline constexpr ZColor kFaceLight{ 108, 115, 127 };
inline constexpr ZColor kFaceDark{ 62, 67, 75 };
inline constexpr ZColor kInk{ 228, 230, 234 }; // letters
inline constexpr ZColor kQuietInk{ 160, 166, 176 };
inline constexpr ZColor kAccent{ 92, 178, 232 };
inline constexpr ZColor kWarm{ 240, 170, 72 };
inline constexpr ZColor kGreen{ 104, 200, 124 };
inline constexpr ZColor kRed{ 232, 92, 84 };

} // namespace tessaly::gallery
