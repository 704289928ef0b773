#include "markers.h"

#include "figures.h"

namespace tessaly::skin
{

namespace
{

constexpr Point kMiddle{ 5.5, 5.5 };

struct Look
{
    Ink disc;
    Ink ring;
    Ink figure;
};

constexpr Look kLooks[]{ { kGlass, kLightRest, kHeading },
                         { kLightTouched, kLightTouched, Hex (0x04262C) },
                         { kGlass, Hex (0x505050), Hex (0x707070) } };

void DrawMarker (Picture& picture, const char* figure, std::int32_t row)
{
    const Look& look = kLooks[row];
    picture.Disc (kMiddle, 5.5, look.disc);
    picture.Circle (kMiddle, 4.75, 1.0, look.ring);
    WriteScale (picture, figure, kMiddle.x, 3.0, Anchor::kCenter, look.figure);
}

} // namespace

void DrawLowMarker (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawMarker (picture, "1", row);
}

void DrawMidMarker (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawMarker (picture, "2", row);
}

void DrawHighMarker (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawMarker (picture, "3", row);
}

} // namespace tessaly::skin
