#pragma once

#include "geometry.h"
#include <cstdint>
#include <string>

namespace tessaly
{

/// Colours and font of the text field and the menu that are drawn on the canvas. The defaults suit a dark panel; they
/// are picked by eye.
struct ZOverlayStyle
{
    ZColor background{ 30, 32, 36 };
    ZColor border{ 98, 102, 110 };
    ZColor text{ 226, 228, 232 };          // the caret, too
    ZColor disabledText{ 118, 121, 128 };  // of items that can't be chosen, and of a field in an inactive control
    ZColor highlight{ 52, 92, 148 };       // behind selected text and the item under the pointer
    ZColor highlightText{ 255, 255, 255 }; // on it
    std::string fontName = "Arial";
    std::int32_t fontStyle = 0;       // bits of FontStyle
    std::int32_t menuFontPixels = 12; // the field's follows from its height
};

} // namespace tessaly
