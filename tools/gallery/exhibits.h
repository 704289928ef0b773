#pragma once

#include "control_description.h"
#include "geometry.h"
#include <array>
#include <cstdint>
#include <vector>

namespace tessaly::gallery
{

inline constexpr std::int32_t kPanelWidth = 890; // pixels at scale 1, as everything here
inline constexpr std::int32_t kPanelHeight = 552;
inline constexpr const char* kPanelImage = "PANEL.PNG"; // behind everything, and of its size

/// A frame of the panel with a title, for one kind of control.
struct Cell
{
    std::int32_t column;
    std::int32_t row;
    const char* title;
    const char* hint = "";    // below, how it is used
    std::int32_t columns = 1; // how many it is wide

    constexpr ZRect Rect () const
    {
        constexpr std::int32_t kWidth = 138;
        constexpr std::int32_t kHeight = 118;
        constexpr std::int32_t kGap = 6;
        const auto left = 16 + column * (kWidth + kGap);
        const auto top = 48 + row * (kHeight + kGap);
        return { left, top, left + columns * (kWidth + kGap) - kGap, top + kHeight };
    }
};

inline constexpr std::array kCells{
    Cell{ 0, 0, "Dial" },
    Cell{ 1, 0, "Dial, anticlockwise" },
    Cell{ 2, 0, "Rotary switch" },
    Cell{ 3, 0, "Toggle switch" },
    Cell{ 4, 0, "Picture of a value" },
    Cell{ 5, 0, "Pictures", "three out of one image" },
    Cell{ 0, 1, "Slider with a thumb" },
    Cell{ 1, 1, "Slider that pages" },
    Cell{ 2, 1, "Slider of frames" },
    Cell{ 3, 1, "Slide switch" },
    Cell{ 4, 1, "Click buttons" },
    Cell{ 5, 1, "On/off buttons" },
    Cell{ 0, 2, "Radio group" },
    Cell{ 1, 2, "Text", "drag or double click" },
    Cell{ 2, 2, "Text, font by code", "drag or double click" },
    Cell{ 3, 2, "Text, font by list", "drag" },
    Cell{ 4, 2, "Menu as text", "press" },
    Cell{ 5, 2, "Menu as pictures", "press" },
    Cell{ 0, 3, "Meters" },
    Cell{ 1, 3, "Offscreen view" },
    Cell{ 2, 3, "Hover view with texts", "", 2 },
    Cell{ 4, 3, "Section that can be off", "", 2 },
};

/// A control that a description makes, and what scripts call it.
struct Exhibit
{
    const char* name; // null: only shows something
    ZControlDescription record;
};
std::vector<Exhibit> Exhibits ();

/// What scripts can point at, in coordinates of the panel.
struct Place
{
    const char* name;
    ZRect rect;
};

// What descriptions don't make
inline constexpr Place kStampPlace{ "stamp", { 611, 230, 711, 250 } };
inline constexpr Place kRatioPlace{ "ratio", { 467, 343, 567, 369 } };
inline constexpr Place kMeterPlace{ "meter", { 100, 452, 116, 520 } };
inline constexpr Place kOffscreenPlace{ "offscreen", { 176, 446, 282, 526 } };
inline constexpr Place kHoverPlace{ "hover", { 320, 446, 570, 526 } };
inline constexpr Place kSectionPlace{ "section", { 660, 446, 864, 526 } };

std::vector<Place> Places (); ///< of both

} // namespace tessaly::gallery
