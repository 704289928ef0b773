#include "knee_switch.h"

#include "frames.h"
#include "light.h"
#include "type.h"

namespace tessaly::skin
{

namespace
{

struct Segment
{
    double left;
    double right;
    double textMiddle;
    const char* text;
};

constexpr Segment kSegments[]{ { 0, 38, 19, "Soft" }, { 38, 81, 59.5, "Middle" }, { 81, 117, 99, "Hard" } };
constexpr Box kBed{ 0, 0, 117, 13 };
constexpr double kUnderlineTop = 11.0;
constexpr double kKeyCorner = 2.0;

struct Look
{
    Ink key;
    Ink text;
    Ink others;
    Ink underline;
    double rim;
};

constexpr Look kLooks[]{
    { Hex (0x354854), kHeading, kUnselected, kLightRest, 0.6 },
    { Hex (0x3C525E), kLightTouched, kUnselected, kLightTouched, 0.7 },
    { Hex (0x1D2830), kLabelOff, kShapeOff, kShapeOff, 0.12 },
};

void DrawKey (Picture& picture, const Look& look, const Segment& segment)
{
    const Box key = Box{ segment.left, 0, segment.right - segment.left, kBed.height }.Inset (1.0);
    picture.FillRoundBox (key, kKeyCorner, look.key);
    KeyLight (picture, key, kKeyCorner, kRimLight.At (look.rim));
    const double inset = 8.0; // of the light under the word
    picture.FillBox ({ key.x + inset, kUnderlineTop, key.width - 2.0 * inset, 1 }, look.underline);
}

} // namespace

void DrawKneeSwitch (Picture& picture, std::int32_t, std::int32_t row)
{
    const Look& look = kLooks[row / 3];
    const std::int32_t selected = row % 3;
    // In the middle between the key's edge in the light and the line below; a unit higher, letters touch that edge.
    const double baseline = picture.Density () > 1.0 ? 9.5 : 10.0;
    picture.Fill (kPlate);
    picture.FillRoundBox (kBed, 2.5, kGlass);
    DrawKey (picture, look, kSegments[selected]);
    for (const Segment& segment : kSegments)
        Write (picture, segment.text, kLabelStyle, segment.textMiddle, baseline, Anchor::kCenter,
               &segment == &kSegments[selected] ? look.text : look.others);
}

} // namespace tessaly::skin
