#include "sketch.h"

#include "canvas_imp.h"
#include "palette.h"
#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string>

namespace tessaly::gallery
{

namespace
{

constexpr double kDegree = std::numbers::pi / 180.0;
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

/// Cairo's angles count from the right, clockwise since y grows downwards.
double CairoAngle (double degree)
{
    return (degree + 90.0) * kDegree;
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

void Sketch::RoundPath (double x, double y, double width, double height, double radius)
{
    auto* path = context.get ();
    cairo_new_sub_path (path);
    cairo_arc (path, x + width - radius, y + radius, radius, -90.0 * kDegree, 0.0);
    cairo_arc (path, x + width - radius, y + height - radius, radius, 0.0, 90.0 * kDegree);
    cairo_arc (path, x + radius, y + height - radius, radius, 90.0 * kDegree, 180.0 * kDegree);
    cairo_arc (path, x + radius, y + radius, radius, 180.0 * kDegree, 270.0 * kDegree);
    cairo_close_path (path);
}

void Sketch::RoundRect (double x, double y, double width, double height, double radius, ZColor color)
{
    RoundPath (x, y, width, height, radius);
    Use (color);
    cairo_fill (context.get ());
}

void Sketch::RoundFrame (double x, double y, double width, double height, double radius, ZColor color)
{
    RoundPath (x + 0.5, y + 0.5, width - 1.0, height - 1.0, radius);
    Use (color);
    cairo_set_line_width (context.get (), 1.0);
    cairo_stroke (context.get ());
}

void Sketch::Disc (double x, double y, double radius, ZColor color)
{
    cairo_arc (context.get (), x, y, radius, 0.0, 360.0 * kDegree);
    Use (color);
    cairo_fill (context.get ());
}

void Sketch::Arc (ZPoint center, double radius, double fromDegree, double toDegree, double lineWidth, ZColor color)
{
    const auto ends = std::minmax (fromDegree, toDegree);
    cairo_arc (context.get (), center.x, center.y, radius, CairoAngle (ends.first), CairoAngle (ends.second));
    Use (color);
    cairo_set_line_width (context.get (), lineWidth);
    cairo_stroke (context.get ());
}

void Sketch::Ray (ZPoint center, double from, double to, double degree, double lineWidth, ZColor color)
{
    const auto x = std::cos (CairoAngle (degree));
    const auto y = std::sin (CairoAngle (degree));
    Line (center.x + from * x, center.y + from * y, center.x + to * x, center.y + to * y, lineWidth, color);
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
