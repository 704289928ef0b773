#include "sketch.h"

#include "canvas_imp.h"
#include "palette.h"
#include "paths.h"
#include <cairo.h>

namespace tessaly::gallery
{

namespace
{

constexpr double kDimShare = 0.3; // of the colour, the rest is the panel's

std::uint8_t Mixed (std::uint8_t part, std::uint8_t panel)
{
    return static_cast<std::uint8_t> (part * kDimShare + panel * (1.0 - kDimShare));
}

ZColor Dimmed (ZColor color)
{
    return { Mixed (color.red, kCellColor.red), Mixed (color.green, kCellColor.green),
             Mixed (color.blue, kCellColor.blue) };
}

} // namespace

Sketch::Sketch (std::int32_t width, std::int32_t height, std::int32_t pixels)
    : imp (width, height, pixels)
    , context (cairo_create (imp.Surface ()))
    , density (pixels)
{
    BeginFrame ({ 0, 0, width, height });
}

void Sketch::BeginFrame (const ZRect& rect)
{
    origin = rect.TopLeft ();
    imp.SetClipRect (rect);
    cairo_identity_matrix (context.get ());
    cairo_reset_clip (context.get ());
    cairo_scale (context.get (), density, density);
    cairo_translate (context.get (), origin.x, origin.y);
    cairo_rectangle (context.get (), 0.0, 0.0, rect.Width (), rect.Height ());
    cairo_clip (context.get ());
}

ZColor Sketch::Shown (ZColor color) const
{
    return dim ? Dimmed (color) : color;
}

void Sketch::Use (ZColor color)
{
    const auto shown = Shown (color);
    cairo_set_source_rgb (context.get (), shown.red / 255.0, shown.green / 255.0, shown.blue / 255.0);
}

void Sketch::RoundRect (double x, double y, double width, double height, double radius, ZColor color)
{
    drawing::AddRoundBox (context.get (), { x, y, width, height }, radius);
    Use (color);
    cairo_fill (context.get ());
}

void Sketch::RoundFrame (double x, double y, double width, double height, double radius, ZColor color)
{
    drawing::AddRoundBox (context.get (), drawing::Box{ x, y, width, height }.Inset (0.5), radius);
    Use (color);
    cairo_set_line_width (context.get (), 1.0);
    cairo_stroke (context.get ());
}

void Sketch::Disc (double x, double y, double radius, ZColor color)
{
    drawing::AddCircle (context.get (), { x, y }, radius);
    Use (color);
    cairo_fill (context.get ());
}

void Sketch::Arc (ZPoint center, double radius, double fromDegree, double toDegree, double lineWidth, ZColor color)
{
    drawing::AddArc (context.get (), { double (center.x), double (center.y) }, radius, fromDegree, toDegree);
    Use (color);
    cairo_set_line_width (context.get (), lineWidth);
    cairo_stroke (context.get ());
}

void Sketch::Ray (ZPoint center, double from, double to, double degree, double lineWidth, ZColor color)
{
    const drawing::Point middle{ double (center.x), double (center.y) };
    const auto first = drawing::OnCircle (middle, from, degree);
    const auto last = drawing::OnCircle (middle, to, degree);
    Line (first.x, first.y, last.x, last.y, lineWidth, color);
}

void Sketch::Line (double x1, double y1, double x2, double y2, double lineWidth, ZColor color)
{
    cairo_move_to (context.get (), x1, y1);
    cairo_line_to (context.get (), x2, y2);
    Use (color);
    cairo_set_line_width (context.get (), lineWidth);
    cairo_set_line_cap (context.get (), CAIRO_LINE_CAP_ROUND);
    cairo_stroke (context.get ());
    cairo_set_line_cap (context.get (), CAIRO_LINE_CAP_BUTT);
}

void Sketch::Text (std::string_view text, const ZRect& rect, std::int32_t pixels, std::int32_t style, ZColor color,
                   std::int32_t alignment)
{
    imp.SetFont ("Arial", pixels, style);
    imp.SetColor (Shown (color), 255);
    imp.DrawText (text, rect + origin, alignment);
}

} // namespace tessaly::gallery
