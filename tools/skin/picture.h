#pragma once

#include "cairo_handles.h"
#include "palette.h"
#include "paths.h"
#include <cstdint>
#include <span>

namespace tessaly::skin
{

using drawing::Box;
using drawing::Point;

/// An image being drawn, at `density` pixels a unit. Places and sizes are units of the present frame; nothing is drawn
/// outside of it.
class Picture
{
public:
    Picture (std::int32_t width, std::int32_t height, std::int32_t density);

    void BeginFrame (const ZRect& rect); ///< in units of the picture; from its top left from now on
    const ZRect& Frame () const { return frame; }
    double Density () const { return density; }
    double Pixel () const { return 1.0 / density; } ///< one pixel, in units

    void Fill (Ink ink); ///< the frame
    void FillBox (const Box& box, Ink ink);
    void FillRoundBox (const Box& box, double radius, Ink ink);
    void Disc (Point center, double radius, Ink ink);
    void Arc (Point center, double radius, double fromDegree, double toDegree, double lineWidth, Ink ink);
    void Circle (Point center, double radius, double lineWidth, Ink ink);
    void Ray (Point center, double fromRadius, double toRadius, double degree, double lineWidth, Ink ink);
    void RoundRay (Point center, double fromRadius, double toRadius, double degree, double lineWidth, Ink ink);
    void FillPolygon (std::span<const Point> points, Ink ink);

    /// Fills or strokes the path that was added to Context.
    void FillPath (Ink ink);
    void StrokePath (double lineWidth, Ink ink);
    void Use (Ink ink);

    cairo_t* Context () const { return context.get (); }
    cairo_surface_t* Surface () const; ///< borrowed, all drawing done

private:
    std::int32_t density;
    CairoSurface surface;
    CairoContext context;
    ZRect frame;
};

} // namespace tessaly::skin
