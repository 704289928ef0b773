#include "picture.h"

#include <cairo.h>
#include <stdexcept>

namespace tessaly::skin
{

namespace
{

constexpr double kTolerance = 0.01; // pixels; Cairo's own 0.1 lets circles bulge into the next row

} // namespace

Picture::Picture (std::int32_t width, std::int32_t height, std::int32_t pixels)
    : density (pixels)
    , surface (cairo_image_surface_create (CAIRO_FORMAT_ARGB32, width * pixels, height * pixels))
    , context (cairo_create (surface.get ()))
{
    if (cairo_status (context.get ()) != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error ("there is no memory for a picture");
    cairo_set_tolerance (context.get (), kTolerance);
    BeginFrame ({ 0, 0, width, height });
}

void Picture::BeginFrame (const ZRect& rect)
{
    frame = rect;
    cairo_reset_clip (context.get ());
    cairo_identity_matrix (context.get ());
    cairo_scale (context.get (), density, density);
    cairo_translate (context.get (), rect.left, rect.top);
    cairo_rectangle (context.get (), 0.0, 0.0, rect.Width (), rect.Height ());
    cairo_clip (context.get ());
}

void Picture::Fill (Ink ink)
{
    Use (ink);
    cairo_paint (context.get ());
}

void Picture::FillBox (const Box& box, Ink ink)
{
    cairo_rectangle (context.get (), box.x, box.y, box.width, box.height);
    FillPath (ink);
}

void Picture::FillRoundBox (const Box& box, double radius, Ink ink)
{
    drawing::AddRoundBox (context.get (), box, radius);
    FillPath (ink);
}

void Picture::Disc (Point center, double radius, Ink ink)
{
    drawing::AddCircle (context.get (), center, radius);
    FillPath (ink);
}

void Picture::Arc (Point center, double radius, double fromDegree, double toDegree, double lineWidth, Ink ink)
{
    drawing::AddArc (context.get (), center, radius, fromDegree, toDegree);
    StrokePath (lineWidth, ink);
}

void Picture::Circle (Point center, double radius, double lineWidth, Ink ink)
{
    drawing::AddCircle (context.get (), center, radius);
    StrokePath (lineWidth, ink);
}

void Picture::Ray (Point center, double fromRadius, double toRadius, double degree, double lineWidth, Ink ink)
{
    drawing::AddRay (context.get (), center, fromRadius, toRadius, degree);
    StrokePath (lineWidth, ink);
}

void Picture::RoundRay (Point center, double fromRadius, double toRadius, double degree, double lineWidth, Ink ink)
{
    cairo_set_line_cap (context.get (), CAIRO_LINE_CAP_ROUND);
    Ray (center, fromRadius, toRadius, degree, lineWidth, ink);
    cairo_set_line_cap (context.get (), CAIRO_LINE_CAP_BUTT);
}

void Picture::FillPolygon (std::span<const Point> points, Ink ink)
{
    for (const Point& point : points)
        cairo_line_to (context.get (), point.x, point.y);
    cairo_close_path (context.get ());
    FillPath (ink);
}

void Picture::FillPath (Ink ink)
{
    Use (ink);
    cairo_fill (context.get ());
}

void Picture::StrokePath (double lineWidth, Ink ink)
{
    Use (ink);
    cairo_set_line_width (context.get (), lineWidth);
    cairo_stroke (context.get ());
}

void Picture::Use (Ink ink)
{
    cairo_set_source_rgba (context.get (), ink.color.red / 255.0, ink.color.green / 255.0, ink.color.blue / 255.0,
                           ink.alpha);
}

cairo_surface_t* Picture::Surface () const
{
    cairo_surface_flush (surface.get ());
    return surface.get ();
}

} // namespace tessaly::skin
