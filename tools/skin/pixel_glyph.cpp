#include "pixel_glyph.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <vector>

namespace tessaly::skin
{

namespace
{

struct Corner
{
    Point point;
    bool sharp = false;
};

/// One line, up to the next blank.
std::vector<Corner> ParseLine (std::string_view line)
{
    std::vector<Corner> corners;
    for (std::size_t i = 0; i + 1 < line.size (); i += 2)
    {
        corners.push_back ({ { line[i] - '0' + 0.5, line[i + 1] - '0' + 0.5 } });
        if (i + 2 < line.size () && line[i + 2] == '!')
        {
            corners.back ().sharp = true;
            ++i;
        }
    }
    return corners;
}

double Length (Point a, Point b)
{
    return std::hypot (b.x - a.x, b.y - a.y);
}

Point Towards (Point from, Point to, double by)
{
    const double share = by / Length (from, to);
    return { from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share };
}

/// The corner between two neighbours, or the two points that are left of it where it is cut off.
void AddCorner (cairo_t* path, Point before, const Corner& corner, Point after, double cut)
{
    const Point at = corner.point;
    const double turn = (at.x - before.x) * (after.x - at.x) + (at.y - before.y) * (after.y - at.y);
    if (corner.sharp || turn != 0.0)
    {
        cairo_line_to (path, at.x, at.y);
        return;
    }
    const double by = std::min ({ cut, Length (before, at) * 0.5, Length (at, after) * 0.5 });
    const Point first = Towards (at, before, by);
    const Point second = Towards (at, after, by);
    cairo_line_to (path, first.x, first.y);
    cairo_line_to (path, second.x, second.y);
}

void AddLine (cairo_t* path, std::span<const Corner> corners, double cut)
{
    const auto last = corners.size () - 1;
    const Point first = corners[0].point;
    const bool closed = Length (first, corners[last].point) == 0.0;
    cairo_new_sub_path (path);
    if (closed)
        AddCorner (path, corners[last - 1].point, corners[0], corners[1].point, cut);
    else
        cairo_line_to (path, first.x, first.y);
    for (std::size_t i = 1; i < last; ++i)
        AddCorner (path, corners[i - 1].point, corners[i], corners[i + 1].point, cut);
    if (closed)
        cairo_close_path (path);
    else
        cairo_line_to (path, corners[last].point.x, corners[last].point.y);
}

void DrawPixels (Picture& picture, const PixelGlyph& glyph, Point topLeft, Ink ink)
{
    for (std::size_t y = 0; y < glyph.rows.size (); ++y)
        for (std::int32_t x = 0; x < glyph.width; ++x)
            if ((glyph.rows[y] >> (glyph.width - 1 - x) & 1) != 0)
                picture.FillBox ({ topLeft.x + x, topLeft.y + static_cast<double> (y), 1, 1 }, ink);
}

} // namespace

void DrawGlyph (Picture& picture, const PixelGlyph& glyph, Point topLeft, const StrokeStyle& style, Ink ink)
{
    if (picture.Density () <= 1.0)
    {
        DrawPixels (picture, glyph, topLeft, ink);
        return;
    }
    cairo_t* context = picture.Context ();
    cairo_save (context);
    cairo_translate (context, topLeft.x, topLeft.y);
    for (auto left = glyph.strokes; !left.empty ();)
    {
        const auto line = left.substr (0, left.find (' '));
        left.remove_prefix (std::min (left.size (), line.size () + 1));
        AddLine (context, ParseLine (line), style.cornerCut);
    }
    cairo_set_line_cap (context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join (context, CAIRO_LINE_JOIN_ROUND);
    picture.StrokePath (style.width, ink); // all at once, so that nothing adds up where lines meet
    cairo_restore (context);
}

} // namespace tessaly::skin
