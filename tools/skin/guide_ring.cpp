#include "guide_ring.h"

#include "light.h"
#include "small_dial.h"
#include <cairo.h>

namespace tessaly::skin
{

namespace
{

constexpr Point kMiddle{ 53.5, 53.5 };
constexpr double kDialPlace = 47.0; // left and top of the 13 x 13 in the middle
constexpr double kTrackRadius = 47.2;
constexpr double kTrackWidth = 4.0;
constexpr Ink kHalo = Hex (0x04080B);
constexpr Ink kFace = Hex (0x151F27);

void DrawBody (Picture& picture)
{
    picture.Disc (kMiddle, 53.4, kHalo.At (0.18));
    picture.Disc (kMiddle, 52.6, kHalo.At (0.25));
    picture.Disc (kMiddle, 51.8, kHalo.At (0.35));
    picture.Disc (kMiddle, 51.0, kHalo);
    picture.Disc (kMiddle, 51.0 - 0.5, kFace);
    RimLight (picture, kMiddle, 50.5 - picture.Pixel () * 0.5, picture.Pixel (), kScale);
    picture.Arc (kMiddle, kTrackRadius, 30, 330, kTrackWidth, kGlass);
}

void DrawNotches (Picture& picture)
{
    for (double degree = 60.0; degree < 330.0; degree += 30.0)
        picture.Ray (kMiddle, kTrackRadius - 2.2, kTrackRadius + 2.2, degree, 1.0, kFace);
}

void DrawRing (Picture& picture, double zeroDegree, std::int32_t frame)
{
    const double degree = DialDegree (frame);
    DrawBody (picture);
    if (degree != zeroDegree)
        picture.Arc (kMiddle, kTrackRadius, zeroDegree, degree, kTrackWidth, kLightTouched);
    DrawNotches (picture);
    picture.Ray (kMiddle, 43.4, 49.6, degree, 2.4, kWhite);
}

} // namespace

void DrawGuideRing (Picture& picture, std::int32_t, std::int32_t frame)
{
    DrawRing (picture, 30.0, frame);
    cairo_translate (picture.Context (), kDialPlace, kDialPlace);
    DrawSmallDial (picture, kLit, frame);
}

void DrawGainGuideRing (Picture& picture, std::int32_t, std::int32_t frame)
{
    DrawRing (picture, 180.0, frame);
    picture.Disc ({ kMiddle.x, kMiddle.y - 42.6 }, 1.2, frame == kDialFrames / 2 ? kLightTouched : kLabel);
    cairo_translate (picture.Context (), kDialPlace, kDialPlace);
    DrawSmallGainDial (picture, kLit, frame);
}

} // namespace tessaly::skin
