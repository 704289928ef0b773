#pragma once

#include "geometry.h"
#include <cstdint>

namespace tessaly
{

/// Kinds of described controls.
enum ControlKind : std::int32_t
{
    kKindPicture = 0,
    kKindPicture1 = 1, // likewise
    kKindAnimPicture = 2,
    kKindClickButton = 3, // without a look
    kKindAnimClickButton = 4,
    kKindOnOffButton = 5,
    kKindDial = 6,
    kKindRotarySwitch = 7,
    kKindKnobSlider = 8,
    kKindAnimSlider = 9,
    kKindSlideSwitch = 10,
    kKindToggleSwitch = 11,
    kKindRadioButton = 12, // those of one id make one group
    kKindFontText = 13,
    kKindText = 14,
    kKindAnimMenu = 15,
    kKindTextMenu = 16,
    kKindPicture17 = 17 // as kKindPicture
};

inline constexpr std::int32_t kTargetMeter = 1; // of ZControlDescription::target; any other value: a control

struct ZDescribedColor
{
    ZColor color;
    std::uint8_t enabled = 0; // not 0: to be used
};

/// One control of a surface that is built from a table. Kinds read what they need; pixels throughout. A rectangle whose
/// width or height is 0 is not set; a null name means no image. The order of the fields is that of written tables.
struct ZControlDescription
{
    std::int32_t kind = kKindPicture; // of ControlKind; a record of any other kind makes nothing
    std::int32_t id = 0;              // mostly a parameter's
    std::int32_t target = 0;
    std::int32_t x = 0; // the frame
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t hitX = 0; // where it is hit, from the frame's top left
    std::int32_t hitY = 0;
    std::int32_t hitWidth = 0;
    std::int32_t hitHeight = 0;
    const char* imageName = nullptr; // picture, strip, thumb or font
    std::int32_t imageX = 0;         // top left in that image
    std::int32_t imageY = 0;
    std::int32_t frameCount = 0; // of a strip, whose frames are as high as the control
    const char* backName = nullptr;
    std::int32_t backX = 0; // top left in that image
    std::int32_t backY = 0;
    ZDescribedColor textColor;
    ZDescribedColor backColor;    // instead of an image
    std::int32_t beginDegree = 0; // sweep of a dial
    std::int32_t endDegree = 0;
    std::int32_t centerX = 0; // of a dial, from the frame's top left
    std::int32_t centerY = 0;
    std::int32_t counterClockwise = 0; // not 0: that way
    std::int32_t knobWidth = 0;        // thumb of a slider
    std::int32_t knobHeight = 0;
    std::int32_t sliderOrientation = 0; // 0, 1 horizontal, reversed; 2, other vertical, reversed
    std::int32_t zoneStart = 0;         // middle zone of a toggle switch
    std::int32_t zoneEnd = 0;
    std::int32_t toggleOrientation = 0; // as sliderOrientation
    std::int32_t buttonIndex = 0;       // of a radio button in its group
    std::int32_t charWidth = 0;         // cell of a bitmap font
    std::int32_t charHeight = 0;        // likewise; of a canvas font it chooses the size
    std::int32_t textX = 0;             // where a text stands, from the frame's top left
    std::int32_t textY = 0;
    std::int32_t textWidth = 0;
    std::int32_t textHeight = 0;
    std::int32_t alignment = 0; // 0 left, 1 centre, other right; vertically in the middle
    std::int32_t editMode = 0;  // 1 drag, 2 type on a double click, 3 both, other neither
};

} // namespace tessaly
