#include "small_dial.h"

#include "light.h"

namespace tessaly::skin
{

namespace
{

constexpr Point kMiddle{ 6.5, 6.5 };
constexpr double kArcRadius = 5.7;
constexpr double kArcWidth = 1.4;

struct Look
{
    Ink bed;
    Ink cap;
    Ink pointer;
    Ink light;
    Ink dot;
    double rim; // how bright
};

constexpr Look kLooks[]{
    { Hex (0x0A1014), Hex (0x52656F), Hex (0xF4FAFB), kLightRest, kLabel, 0.9 },
    { Hex (0x0A1014), Hex (0x5E747F), kWhite, kLightTouched, kLabel, 1.0 },
    { Hex (0x172129), Hex (0x2B3740), Hex (0x62727D), kShapeOff, kShapeOff, 0.22 },
};

void DrawCap (Picture& picture, const Look& look, double degree)
{
    picture.Disc (kMiddle, 4.55, look.cap);
    RimLight (picture, kMiddle, 4.2, 0.7, kRimLight.At (look.rim));
    picture.RoundRay (kMiddle, 0.4, 4.4, degree, 1.5, look.pointer);
}

} // namespace

void DrawSmallDial (Picture& picture, std::int32_t column, std::int32_t frame)
{
    const Look& look = kLooks[column];
    picture.Disc (kMiddle, 6.5, look.bed);
    if (column != kOff && frame > 0)
        picture.Arc (kMiddle, kArcRadius, 30.0, DialDegree (frame), kArcWidth, look.light);
    DrawCap (picture, look, DialDegree (frame));
}

void DrawSmallGainDial (Picture& picture, std::int32_t column, std::int32_t frame)
{
    const Look& look = kLooks[column];
    const bool atMiddle = frame == kDialFrames / 2;
    picture.Disc (kMiddle, 6.5, look.bed);
    if (column != kOff)
    {
        if (!atMiddle)
            picture.Arc (kMiddle, kArcRadius, 180.0, DialDegree (frame), kArcWidth, look.light);
        picture.Disc ({ kMiddle.x, kMiddle.y - kArcRadius }, 0.9, atMiddle ? look.light : look.dot);
    }
    DrawCap (picture, look, DialDegree (frame));
}

} // namespace tessaly::skin
