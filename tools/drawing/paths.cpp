#include "paths.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessaly::drawing
{

namespace
{

constexpr double kDegree = std::numbers::pi / 180.0;

} // namespace

double CairoAngle (double degree)
{
    return (degree + 90.0) * kDegree;
}

Point OnCircle (Point center, double radius, double degree)
{
    return { center.x + radius * std::cos (CairoAngle (degree)), center.y + radius * std::sin (CairoAngle (degree)) };
}

void AddRoundBox (cairo_t* path, const Box& box, double radius)
{
    const double right = box.x + box.width - radius;
    const double bottom = box.y + box.height - radius;
    cairo_new_sub_path (path);
    cairo_arc (path, right, box.y + radius, radius, -90.0 * kDegree, 0.0);
    cairo_arc (path, right, bottom, radius, 0.0, 90.0 * kDegree);
    cairo_arc (path, box.x + radius, bottom, radius, 90.0 * kDegree, 180.0 * kDegree);
    cairo_arc (path, box.x + radius, box.y + radius, radius, 180.0 * kDegree, 270.0 * kDegree);
    cairo_close_path (path);
}

void AddCircle (cairo_t* path, Point center, double radius)
{
    cairo_new_sub_path (path);
    cairo_arc (path, center.x, center.y, radius, 0.0, 360.0 * kDegree);
    cairo_close_path (path);
}

void AddArc (cairo_t* path, Point center, double radius, double fromDegree, double toDegree)
{
    const auto [first, last] = std::minmax (fromDegree, toDegree);
    cairo_new_sub_path (path);
    cairo_arc (path, center.x, center.y, radius, CairoAngle (first), CairoAngle (last));
}

void AddRay (cairo_t* path, Point center, double fromRadius, double toRadius, double degree)
{
    const Point from = OnCircle (center, fromRadius, degree);
    const Point to = OnCircle (center, toRadius, degree);
    cairo_move_to (path, from.x, from.y);
    cairo_line_to (path, to.x, to.y);
}

} // namespace tessaly::drawing
