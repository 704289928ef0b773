#include "morph_dial.h"

#include "frames.h"
#include "lens.h"
#include "light.h"
#include "type.h"
#include <string>

namespace tessaly::skin
{

namespace
{

constexpr Point kMiddle{ 82.0, 40.0 };
constexpr double kFirstDegree = 60.0;
constexpr double kTurn = 240.0;
constexpr double kArcRadius = 36.5;
constexpr double kFigureBaseline = 45.0;
constexpr Box kBar{ 0, 90, 164, 2 };

struct Look
{
    Ink light;
    Ink figure;
    double lensShare;
    bool glows;
};

constexpr Look kLooks[]{ { kLightRest, kFigure, 0.85, false },
                         { kLightTouched, kLightTouched, 1.0, true },
                         { kAmber, kAmber, 0.85, true } };

void DrawArc (Picture& picture, const Look& look, double degree)
{
    if (degree > kFirstDegree)
    {
        if (look.glows)
            picture.Arc (kMiddle, kArcRadius, kFirstDegree, degree, 5.0, look.light.At (0.16));
        picture.Arc (kMiddle, kArcRadius, kFirstDegree, degree, 3.0, look.light);
    }
    for (int k = 1; k < 8; ++k) // at the key points between the ends
        picture.Ray (kMiddle, kArcRadius - 1.5, kArcRadius + 1.5, kFirstDegree + 30.0 * k, 1.0, kGlass);
}

void DrawHub (Picture& picture)
{
    picture.Circle (kMiddle, 20.0, 2.0, kShadow);
    picture.Disc (kMiddle, 19.4, Hex (0x0A1015));
    LowerLip (picture, kMiddle, 19.4 - picture.Pixel () * 0.5, picture.Pixel (), kRimLight.At (0.6));
}

/// 1.0 to 9.0, rounded as the value's own text is.
void WritePosition (Picture& picture, std::int32_t frame, Ink ink)
{
    const std::int32_t tenths = (10 * 100 + 80 * frame + 50) / 100;
    const std::string text = std::to_string (tenths / 10) + '.' + std::to_string (tenths % 10);
    WriteFigures (picture, text, kLensStyle, kMiddle.x, kFigureBaseline, ink);
}

} // namespace

void DrawMorphDial (Picture& picture, std::int32_t column, std::int32_t frame)
{
    const Look& look = kLooks[column];
    const double part = static_cast<double> (frame) / (kDialFrames - 1);
    const double degree = kFirstDegree + kTurn * part;
    DrawArc (picture, look, degree);
    picture.Disc ({ kMiddle.x, kMiddle.y + 1.0 }, 33.2, kShadow);
    DrawLens (picture, { kMiddle, 32.8, 21.2, degree, look.light, look.lensShare });
    picture.RoundRay (kMiddle, 22.4, 31.6, degree, 1.8, kWhite);
    DrawHub (picture);
    WritePosition (picture, frame, look.figure);
    picture.FillBox ({ kBar.x, kBar.y, kBar.width * part, kBar.height }, look.light);
}

} // namespace tessaly::skin
