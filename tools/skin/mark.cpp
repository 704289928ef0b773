#include "mark.h"

#include <cmath>
#include <numbers>

namespace tessaly::skin
{

namespace
{

constexpr Ink kTesserae[]{
    kLightTouched, Hex (0x7F9BA8), Hex (0x435A67), Hex (0x2C3E49), Hex (0x435A67), Hex (0x7F9BA8)
}; // clockwise from the top
constexpr double kGap = 0.8;

} // namespace

void DrawMark (Picture& picture, Point center, double radius)
{
    double degree = 180.0;
    for (const Ink& ink : kTesserae)
    {
        // The sides that it shares with its neighbours lie half a gap inwards: so does the apex, along its middle, and
        // so do the outer corners, along the outer side.
        const double inwards = kGap * 0.5 / std::sin (std::numbers::pi / 3.0) / radius;
        const Point apex = drawing::OnCircle (center, kGap, degree);
        const Point left = drawing::OnCircle (center, radius, degree - 30.0);
        const Point right = drawing::OnCircle (center, radius, degree + 30.0);
        const auto between = [] (Point a, Point b, double t) {
            return Point{ a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t };
        };
        const Point corners[]{ apex, between (left, right, inwards), between (right, left, inwards) };
        picture.FillPolygon (corners, ink);
        degree += 60.0;
    }
}

} // namespace tessaly::skin
