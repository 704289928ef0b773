#pragma once

#include <cairo.h>

namespace tessaly::drawing
{

// Paths of the shapes that panels are made of. Angles are the toolkit's: degrees clockwise from straight below.

struct Point
{
    double x = 0.0;
    double y = 0.0;
};

struct Box
{
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    /// As much smaller on each side.
    Box Inset (double by) const { return { x + by, y + by, width - 2.0 * by, height - 2.0 * by }; }
};

double CairoAngle (double degree); ///< radian clockwise from the right, as y grows downwards
Point OnCircle (Point center, double radius, double degree);

void AddRoundBox (cairo_t* path, const Box& box, double radius);
void AddCircle (cairo_t* path, Point center, double radius);
void AddArc (cairo_t* path, Point center, double radius, double fromDegree, double toDegree); ///< in either order
void AddRay (cairo_t* path, Point center, double fromRadius, double toRadius, double degree);

} // namespace tessaly::drawing
