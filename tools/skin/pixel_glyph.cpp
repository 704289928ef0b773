#include "pixel_glyph.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <vector>

namespace tessaly::skin
{

namespace
{

/// A straight run of neighbouring pixels.
struct Run
{
    ZPoint first;
    ZPoint last;
    ZPoint step;

    std::int32_t Length () const { return std::max (std::abs (last.x - first.x), std::abs (last.y - first.y)); }
    bool HasEnd (ZPoint point) const { return first == point || last == point; }
    bool Holds (ZPoint point) const
    {
        for (ZPoint at = first;; at = at + step)
        {
            if (at == point)
                return true;
            if (at == last)
                return false;
        }
    }
};

/// Whether the pixel and the next one in this direction belong to one stroke. Two that touch at their corners do where
/// no third one leads from one to the other.
bool Linked (const PixelGlyph& glyph, ZPoint at, ZPoint step)
{
    const ZPoint next = at + step;
    if (!glyph.At (at.x, at.y) || !glyph.At (next.x, next.y))
        return false;
    return step.x == 0 || step.y == 0 || (!glyph.At (next.x, at.y) && !glyph.At (at.x, next.y));
}

std::vector<Run> RunsOf (const PixelGlyph& glyph)
{
    std::vector<Run> runs;
    for (const ZPoint step : { ZPoint{ 1, 0 }, { 0, 1 }, { 1, 1 }, { -1, 1 } })
        for (std::int32_t y = 0; y < static_cast<std::int32_t> (glyph.rows.size ()); ++y)
            for (std::int32_t x = 0; x < glyph.width; ++x)
            {
                const ZPoint at{ x, y };
                if (Linked (glyph, at - step, step) || !Linked (glyph, at, step))
                    continue;
                ZPoint last = at;
                while (Linked (glyph, last, step))
                    last = last + step;
                runs.push_back ({ at, last, step });
            }
    return runs;
}

/// The other run of a right-angled corner at this end of a run; null where there is none.
const Run* CornerWith (const std::vector<Run>& runs, const Run& run, ZPoint end)
{
    const Run* other = nullptr;
    for (const Run& candidate : runs)
    {
        if (&candidate == &run || !candidate.Holds (end))
            continue;
        const bool rightAngled = candidate.step.x * run.step.x + candidate.step.y * run.step.y == 0;
        if (other != nullptr || !rightAngled || !candidate.HasEnd (end))
            return nullptr;
        other = &candidate;
    }
    return other;
}

Point MiddleOf (ZPoint pixel)
{
    return { pixel.x + 0.5, pixel.y + 0.5 };
}

/// The end of a run, moved along it to leave room for a cut corner.
Point EndOf (const std::vector<Run>& runs, const Run& run, ZPoint end, double cut)
{
    Point point = MiddleOf (end);
    if (const Run* other = CornerWith (runs, run, end))
    {
        const double by = std::min ({ cut, run.Length () * 0.5, other->Length () * 0.5 });
        const double sign = end == run.first ? 1.0 : -1.0;
        point.x += sign * by * run.step.x;
        point.y += sign * by * run.step.y;
    }
    return point;
}

void AddStrokes (cairo_t* path, const PixelGlyph& glyph, double cut)
{
    const auto runs = RunsOf (glyph);
    for (const Run& run : runs)
    {
        const Point first = EndOf (runs, run, run.first, cut);
        const Point last = EndOf (runs, run, run.last, cut);
        cairo_move_to (path, first.x, first.y);
        cairo_line_to (path, last.x, last.y);
        for (const ZPoint end : { run.first, run.last })
            if (const Run* other = CornerWith (runs, run, end); other != nullptr && &run < other)
            {
                const Point from = end == run.first ? first : last;
                const Point to = EndOf (runs, *other, end, cut);
                cairo_move_to (path, from.x, from.y);
                cairo_line_to (path, to.x, to.y);
            }
    }
}

void DrawPixels (Picture& picture, const PixelGlyph& glyph, Point topLeft, Ink ink)
{
    for (std::int32_t y = 0; y < static_cast<std::int32_t> (glyph.rows.size ()); ++y)
        for (std::int32_t x = 0; x < glyph.width; ++x)
            if (glyph.At (x, y))
                picture.FillBox ({ topLeft.x + x, topLeft.y + y, 1, 1 }, ink);
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
    AddStrokes (context, glyph, style.cornerCut);
    cairo_set_line_cap (context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join (context, CAIRO_LINE_JOIN_ROUND);
    picture.StrokePath (style.width, ink); // all at once, so that nothing adds up where strokes meet
    cairo_restore (context);
}

} // namespace tessaly::skin
