#include "light.h"

#include <cairo.h>
#include <cmath>

namespace tessaly::skin
{

namespace
{

/// Strokes the path with an ink that is full at `fullY` and gone at `goneY`.
void StrokeFading (Picture& picture, double fullY, double goneY, double lineWidth, Ink ink)
{
    const CairoPattern fading (cairo_pattern_create_linear (0.0, fullY, 0.0, goneY));
    const auto& [red, green, blue] = ink.color;
    cairo_pattern_add_color_stop_rgba (fading.get (), 0.0, red / 255.0, green / 255.0, blue / 255.0, ink.alpha);
    cairo_pattern_add_color_stop_rgba (fading.get (), 1.0, red / 255.0, green / 255.0, blue / 255.0, 0.0);
    cairo_set_source (picture.Context (), fading.get ());
    cairo_set_line_width (picture.Context (), lineWidth);
    cairo_stroke (picture.Context ());
}

} // namespace

double Facing (double degree)
{
    return std::sin (drawing::CairoAngle (degree)) * -1.0;
}

void RimLight (Picture& picture, Point center, double radius, double lineWidth, Ink ink)
{
    drawing::AddArc (picture.Context (), center, radius, 90.0, 270.0);
    StrokeFading (picture, center.y - radius, center.y, lineWidth, ink);
}

void LowerLip (Picture& picture, Point center, double radius, double lineWidth, Ink ink)
{
    drawing::AddArc (picture.Context (), center, radius, -90.0, 90.0);
    StrokeFading (picture, center.y + radius, center.y, lineWidth, ink);
}

void KeyLight (Picture& picture, const Box& box, double radius, Ink ink)
{
    const double half = 0.5 * picture.Pixel ();
    drawing::AddRoundBox (picture.Context (), box.Inset (half), radius - half);
    StrokeFading (picture, box.y + half, box.y + radius + half, picture.Pixel (), ink);
}

void BoxLip (Picture& picture, const Box& box, double radius, Ink ink)
{
    const double half = 0.5 * picture.Pixel ();
    drawing::AddRoundBox (picture.Context (), box.Inset (-half), radius + half);
    const double bottom = box.y + box.height + half;
    StrokeFading (picture, bottom, bottom - radius - half, picture.Pixel (), ink);
}

} // namespace tessaly::skin
