#include "about.h"

#include "lens.h"
#include "light.h"
#include "mark.h"
#include "type.h"
#include <cmath>
#include <string>

namespace tessaly::skin
{

namespace
{

constexpr Point kMiddle{ 402.0, 157.5 };
constexpr double kArcRadius = 104.0;
constexpr double kBedRadius = 111.5;
constexpr double kPointedAt = 180.0; // the fifth key point

constexpr TextStyle kTitle{ Face::kManropeBold, 30, 4 };
constexpr TextStyle kSubtitle{ Face::kManropeMedium, 14, 3 };
constexpr TextStyle kNumbers{ Face::kManropeBold, 11, 0 };
constexpr TextStyle kEdition{ Face::kManropeMedium, 38, 0 };

void DrawTrack (Picture& picture)
{
    const double d = picture.Pixel ();
    picture.Disc (kMiddle, kBedRadius - d, kGlass);
    LowerLip (picture, kMiddle, kBedRadius - d * 0.5, d, kBenchEdge);
    picture.Arc (kMiddle, kArcRadius, 60, 300, 8, kUnlitTrack);
    picture.Arc (kMiddle, kArcRadius, 60, kPointedAt, 8, kLightRest);
    for (int k = 1; k < 8; ++k)
        picture.Ray (kMiddle, kArcRadius - 4, kArcRadius + 4, 60 + 30 * k, 1.5, kGlass);
    for (int k = 0; k < 9; ++k)
    {
        const Point place = drawing::OnCircle (kMiddle, 124, 60 + 30 * k);
        Write (picture, std::to_string (k + 1), kNumbers, place.x, std::round (place.y + 4.0), Anchor::kCenter, kLabel);
    }
}

void DrawBigLens (Picture& picture)
{
    picture.Disc ({ kMiddle.x, kMiddle.y + 2.5 }, 95, kShadow);
    DrawLens (picture, { kMiddle, 94, 60, kPointedAt, kLightTouched, 1.0 });
    picture.RoundRay (kMiddle, 65, 90, kPointedAt, 3, kWhite);
    picture.Disc (kMiddle, 57.5, kShadow);
    picture.Disc (kMiddle, 55, Hex (0x0A1015));
    LowerLip (picture, kMiddle, 55 - picture.Pixel () * 0.5, picture.Pixel (), kRimLight.At (0.75));
    Write (picture, "[m]", kEdition, kMiddle.x, kMiddle.y + 10.5, Anchor::kCenter, kFigure);
}

} // namespace

void DrawAbout (Picture& picture)
{
    picture.Fill (kBench);
    DrawTrack (picture);
    DrawBigLens (picture);
    DrawMark (picture, { 30, 70 }, 11);
    Write (picture, "TESSALY", kTitle, 20, 118, Anchor::kLeft, kHeading);
    Write (picture, "BLENDING BENCH", kSubtitle, 20, 143, Anchor::kLeft, kFigure);
    picture.FillBox ({ 20, 158, 26, 2 }, kLightTouched);
    Write (picture, "ARROWMERE SOUND WORKS", kHeadingStyle, 20, 181, Anchor::kLeft, kLabel);
}

} // namespace tessaly::skin
