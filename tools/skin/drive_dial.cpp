#include "drive_dial.h"

#include "frames.h"
#include "light.h"
#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace tessaly::skin
{

namespace
{

constexpr Point kMiddle{ 28.0, 28.0 };
constexpr double kArcWidth = 2.98; // 3 on the panel; it must not spill into the frame's outermost row
constexpr int kFlutes = 24;
constexpr double kSkirtInner = 16.0;
constexpr double kSkirtOuter = 20.8;

struct Look
{
    Ink light;
    Ink cap;
    Ink pointer;
    double skirtOff; // share of the dimmed skirt
    double rim;
};

constexpr Look kLooks[]{
    { kLightRest, Hex (0x3D505B), Hex (0xF4FAFB), 0.0, 0.75 },
    { kLightTouched, Hex (0x485D68), kWhite, 0.0, 0.9 },
    { kShapeOff, Hex (0x26323A), Hex (0x62727D), 0.72, 0.2 },
};

Ink FluteInk (const Look& look, int index, double degree)
{
    const double u = Facing (degree);
    const double shade = 0.10 + 0.34 * std::pow ((1.0 + u) * 0.5, 1.2) + 0.20 * std::pow (std::max (0.0, u), 3.0) +
                         (index % 2 == 0 ? 0.05 : -0.03);
    return Mix (Mix (kFacetDark, kFacetLight, shade), Hex (0x1B252D), look.skirtOff);
}

void DrawSkirt (Picture& picture, const Look& look, double pointerDegree)
{
    constexpr double kStep = 360.0 / kFlutes;
    for (int index = 0; index < kFlutes; ++index)
    {
        const double degree = pointerDegree + kStep * index;
        const Point corners[]{
            drawing::OnCircle (kMiddle, kSkirtOuter, degree - kStep * 0.5),
            drawing::OnCircle (kMiddle, kSkirtOuter, degree + kStep * 0.5),
            drawing::OnCircle (kMiddle, kSkirtInner, degree + kStep * 0.5),
            drawing::OnCircle (kMiddle, kSkirtInner, degree - kStep * 0.5),
        };
        const Ink ink = FluteInk (look, index, degree);
        picture.FillPolygon (corners, ink);
        for (const Point& corner : corners)
            cairo_line_to (picture.Context (), corner.x, corner.y);
        cairo_close_path (picture.Context ());
        picture.StrokePath (0.3, ink);
    }
}

} // namespace

void DrawDriveDial (Picture& picture, std::int32_t column, std::int32_t frame)
{
    const Look& look = kLooks[column];
    const double degree = DialDegree (frame);
    if (frame > 0)
        picture.Arc (kMiddle, 25.5, 30.0, degree, kArcWidth, look.light);
    picture.Disc (kMiddle, 21.6, kShadow.At (0.6));
    DrawSkirt (picture, look, degree);
    picture.Disc (kMiddle, 16.4, kShadow);
    picture.Disc (kMiddle, 15.8, look.cap);
    RimLight (picture, kMiddle, 15.8 - picture.Pixel () * 0.5, picture.Pixel (), kRimLight.At (look.rim));
    picture.RoundRay (kMiddle, 6.5, 14.4, degree, 2.2, look.pointer);
    picture.RoundRay (kMiddle, 17.2, 20.0, degree, 2.2, look.pointer);
}

} // namespace tessaly::skin
