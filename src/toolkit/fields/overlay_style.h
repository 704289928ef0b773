#pragma once

#include "geometry.h"
#include <cstdint>
#include <string>

namespace tessaly
{

/// Colours and font of the text field and the menu that are drawn on the canvas. The defaults are the panel's own: dark
/// glass, figures as in its read-outs, and the light of what is touched.
struct ZOverlayStyle
{
    ZColor background{ 9, 15, 20 };
    ZColor border{ 65, 85, 95 }; // of the menu
    ZColor text{ 196, 215, 222 };
    ZColor disabledText{ 85, 101, 111 };   // of items that can't be chosen, and of a field in an inactive control
    ZColor highlight{ 0, 116, 138 };       // behind selected text and the item under the pointer
    ZColor highlightText{ 255, 255, 255 }; // on it
    ZColor caret{ 103, 254, 255 };         // and the line below the text of a field that takes keys
    std::string fontName = "Arial";
    std::int32_t fontStyle = 0;       // bits of FontStyle
    std::int32_t menuFontPixels = 12; // the field's follows from its height
};

} // namespace tessaly
