#include "dialog.h"

#include "light.h"
#include "type.h"
#include <cairo.h>

namespace tessaly::skin
{

namespace
{

constexpr Ink kBody = Hex (0x26343E);
constexpr Ink kEdge = Hex (0x05090C);
constexpr Ink kCard = Hex (0xE6EEF1);
constexpr Ink kScrollBed = Hex (0x141E25);
constexpr Ink kKeyUp = Hex (0x33454F);
constexpr Ink kKeyDown = Hex (0x22303A);
constexpr double kBodyCorner = 4.0;
constexpr double kKeyCorner = 3.0;

constexpr Box kList{ 8, 8, 201, 227 };
constexpr Box kScroll{ 209, 8, 15, 227 };

Box FrameBox (const Picture& picture)
{
    return { 0, 0, double (picture.Frame ().Width ()), double (picture.Frame ().Height ()) };
}

/// A key of the dialog in its dark seat; light on it only while it stands up.
void DrawKey (Picture& picture, Ink face, Ink light)
{
    const Box seat = FrameBox (picture);
    picture.Fill (kBody);
    picture.FillRoundBox (seat, kKeyCorner, kEdgeDark);
    picture.FillRoundBox (seat.Inset (1.0), kKeyCorner - 1.0, face);
    KeyLight (picture, seat.Inset (1.0), kKeyCorner - 1.0, light);
}

// Keys of the scroll bar

constexpr double kArrowMiddle = 7.5;
constexpr double kArrowHalf = 4.5;

void DrawScrollKey (Picture& picture, bool pressed)
{
    const Box key = FrameBox (picture).Inset (1.0);
    picture.Fill (kScrollBed);
    picture.FillRoundBox (key, 2.0, pressed ? kKeyDown : kKeyUp);
    if (!pressed)
        KeyLight (picture, key, 2.0, kRimLight.At (0.5));
}

Ink ArrowInk (std::int32_t row)
{
    return row == 0 ? kHeading : kLightTouched;
}

/// A triangle from its base to its tip. Like the bar of a stop it is 9 wide: around the middle of a key that is 15 wide,
/// only odd widths begin and end with whole pixels.
void DrawArrow (Picture& picture, double baseY, double tipY, std::int32_t row)
{
    const Point corners[]{ { kArrowMiddle - kArrowHalf, baseY },
                           { kArrowMiddle + kArrowHalf, baseY },
                           { kArrowMiddle, tipY } };
    picture.FillPolygon (corners, ArrowInk (row));
}

void DrawStop (Picture& picture, double top, std::int32_t row)
{
    picture.FillBox ({ kArrowMiddle - kArrowHalf, top, 2.0 * kArrowHalf, 1.0 }, ArrowInk (row));
}

} // namespace

void DrawDialog (Picture& picture)
{
    const Box frame = FrameBox (picture);
    picture.FillRoundBox (frame, kBodyCorner, kEdge);
    picture.FillRoundBox (frame.Inset (1.0), kBodyCorner - 1.0, kBody);
    KeyLight (picture, frame.Inset (1.0), kBodyCorner - 1.0, kRimLight.At (0.45));

    const Box recess = Box{ kList.x, kList.y, kList.width + kScroll.width, kList.height }.Inset (-1.0);
    BoxLip (picture, recess, 1.5, kRimLight.At (0.3));
    picture.FillRoundBox (recess, 1.5, kEdge);
    picture.FillBox (kScroll, kScrollBed);
    picture.FillBox (kList, kCard);
}

void DrawOkKey (Picture& picture, std::int32_t, std::int32_t row)
{
    struct Look
    {
        Ink face;
        Ink text;
        double light;
    };
    constexpr Look kLooks[]{ { Hex (0x1D2932), Hex (0x5F737E), 0.0 },
                             { kCurve, kWhite, 0.7 },
                             { Hex (0x00586A), kLightTouched, 0.0 } };
    const Look& look = kLooks[row];
    DrawKey (picture, look.face, kLightTouched.At (look.light));
    Write (picture, "OK", kButtonStyle, 31, 13, Anchor::kCenter, look.text);
}

void DrawCancelKey (Picture& picture, std::int32_t, std::int32_t row)
{
    const bool pressed = row == 1;
    DrawKey (picture, pressed ? kKeyDown : kKeyUp, kRimLight.At (pressed ? 0.0 : 0.6));
    Write (picture, "Cancel", kButtonStyle, 30, 12, Anchor::kCenter, pressed ? kLightTouched : kHeading);
}

void DrawToTopKey (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawScrollKey (picture, row == 1);
    DrawStop (picture, 3.0, row);
    DrawArrow (picture, 10.0, 5.5, row);
}

void DrawToBottomKey (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawScrollKey (picture, row == 1);
    DrawArrow (picture, 4.0, 8.5, row);
    DrawStop (picture, 10.0, row);
}

void DrawLineUpKey (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawScrollKey (picture, row == 1);
    DrawArrow (picture, 9.0, 4.5, row);
}

void DrawLineDownKey (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawScrollKey (picture, row == 1);
    DrawArrow (picture, 5.0, 9.5, row);
}

void DrawFolder (Picture& picture, std::int32_t, std::int32_t row)
{
    constexpr Ink kBack = Hex (0x3A5360); // of the tab, in the folder's own shade
    constexpr Ink kFront = Hex (0x4E6D7B);
    const Point tab[]{ { 0, 0.5 }, { 3, 0.5 }, { 4, 1.5 }, { 8, 1.5 }, { 8, 7.5 }, { 0, 7.5 } };
    picture.FillPolygon (tab, kBack);
    if (row == 0)
    {
        picture.FillBox ({ 0, 2.5, 8, 5 }, kFront);
        return;
    }
    const Point front[]{ { 1.2, 3.5 }, { 9, 3.5 }, { 7.8, 7.5 }, { 0, 7.5 } };
    picture.FillPolygon (front, kCurve);
}

} // namespace tessaly::skin
