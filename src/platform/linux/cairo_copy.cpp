#include "cairo_copy.h"

#include <algorithm>
#include <cairo.h>
#include <cstddef>
#include <cstring>

namespace tessaly
{

namespace
{

/// One axis of a copy: pixels of the target, pixels of the source, and source = target * step + origin.
struct Axis
{
    std::int32_t targetFirst = 0;
    std::int32_t targetEnd = 0;
    std::int32_t sourceFirst = 0;
    std::int32_t sourceEnd = 0;
    double step = 1.0;
    double origin = 0.0;

    bool IsEmpty () const { return targetFirst >= targetEnd || sourceFirst >= sourceEnd; }
};

/// Two ends in coordinates; as doubles, because the length of any two int32 fits.
struct Span
{
    double first;
    double end;

    double Length () const { return end - first; }
};

Axis AlongAxis (const PixelAxis& target, Span to, const PixelAxis& source, Span from, std::int32_t sourceSize,
                std::int32_t sourcePixels)
{
    const Span seen{ std::max (from.first, 0.0), std::min<double> (from.end, sourceSize) };
    if (!(to.Length () > 0.0) || !(seen.Length () > 0.0))
        return {};
    const double ratio = from.Length () / to.Length ();
    Axis axis;
    axis.targetFirst = target.Edge (to.first + (seen.first - from.first) / ratio);
    axis.targetEnd = target.Edge (to.first + (seen.end - from.first) / ratio);
    axis.sourceFirst = source.Edge (seen.first);
    axis.sourceEnd = std::min (source.Edge (seen.end), sourcePixels);
    axis.step = ratio * source.Scale () / target.Scale ();
    // Pixel to pixel the two edges have been rounded, and the copy follows them.
    axis.origin = axis.step == 1.0 ? axis.sourceFirst - axis.targetFirst
                                   : source.Exact (from.first + (target.Coordinate (0.0) - to.first) * ratio);
    return axis;
}

std::uint32_t OpaquePixel (ZColor color)
{
    return 0xFF000000U | std::uint32_t{ color.red } << 16 | std::uint32_t{ color.green } << 8 | color.blue;
}

unsigned char* PixelAt (cairo_surface_t* surface, std::int32_t x, std::int32_t y)
{
    return cairo_image_surface_get_data (surface) + std::ptrdiff_t{ cairo_image_surface_get_stride (surface) } * y +
           std::ptrdiff_t{ 4 } * x;
}

/// The pixels themselves, seen through a surface as large as the area: what it is padded with is its own edge.
CairoSurface View (cairo_surface_t* pixels, const Axis& x, const Axis& y)
{
    return CairoSurface (cairo_image_surface_create_for_data (
        PixelAt (pixels, x.sourceFirst, y.sourceFirst), CAIRO_FORMAT_ARGB32, x.sourceEnd - x.sourceFirst,
        y.sourceEnd - y.sourceFirst, cairo_image_surface_get_stride (pixels)));
}

/// Copies the pixels of one surface to another of the same size. @return how many of the key were left out
std::size_t CopyPixels (cairo_surface_t* from, cairo_surface_t* to, std::optional<ZColor> key)
{
    const auto width = static_cast<std::size_t> (cairo_image_surface_get_width (from));
    const std::uint32_t left = key ? OpaquePixel (*key) : 0;
    std::size_t found = 0;
    for (int row = 0; row < cairo_image_surface_get_height (from); ++row)
    {
        const unsigned char* source = PixelAt (from, 0, row);
        unsigned char* target = PixelAt (to, 0, row);
        for (std::size_t i = 0; i < 4 * width; i += 4)
        {
            std::uint32_t pixel = 0;
            std::memcpy (&pixel, source + i, 4);
            if (key && pixel == left)
            {
                pixel = 0;
                ++found;
            }
            std::memcpy (target + i, &pixel, 4);
        }
    }
    cairo_surface_mark_dirty (to);
    return found;
}

/// A surface of the same size with pixels of its own; null without memory.
CairoSurface Alike (cairo_surface_t* pixels)
{
    CairoSurface copy (cairo_image_surface_create (CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width (pixels),
                                                   cairo_image_surface_get_height (pixels)));
    return cairo_surface_status (copy.get ()) == CAIRO_STATUS_SUCCESS ? std::move (copy) : nullptr;
}

/// Sets the target's source so that each of its pixels takes from the area what the axes say.
void SetSource (cairo_t* target, cairo_surface_t* area, const Axis& x, const Axis& y)
{
    const CairoPattern pattern (cairo_pattern_create_for_surface (area));
    cairo_matrix_t toSource;
    cairo_matrix_init (&toSource, x.step, 0.0, 0.0, y.step, x.origin - x.sourceFirst, y.origin - y.sourceFirst);
    cairo_pattern_set_matrix (pattern.get (), &toSource);
    cairo_pattern_set_extend (pattern.get (), CAIRO_EXTEND_PAD);
    const bool pixelToPixel = x.step == 1.0 && y.step == 1.0;
    const bool shrinks = x.step > 1.0 || y.step > 1.0;
    cairo_pattern_set_filter (pattern.get (), pixelToPixel ? CAIRO_FILTER_NEAREST
                                              : shrinks    ? CAIRO_FILTER_GOOD
                                                           : CAIRO_FILTER_BILINEAR);
    cairo_set_source (target, pattern.get ());
}

void Paint (cairo_t* target, const Axis& x, const Axis& y, double alpha)
{
    cairo_rectangle (target, x.targetFirst, y.targetFirst, x.targetEnd - x.targetFirst, y.targetEnd - y.targetFirst);
    if (alpha >= 1.0)
    {
        cairo_fill (target);
        return;
    }
    cairo_save (target);
    cairo_clip (target);
    cairo_paint_with_alpha (target, alpha);
    cairo_restore (target);
}

} // namespace

void CopyArea (cairo_t* target, const PixelGrid& grid, const ZRect& rect, const CopySource& source, const ZRect& from,
               const CopyBlend& blend)
{
    if (source.surface == nullptr || cairo_image_surface_get_data (source.surface) == nullptr)
        return;
    const double left = source.place.x;
    const double top = source.place.y;
    const Axis x = AlongAxis (grid.X (), { double (rect.left), double (rect.right) }, source.grid.X (),
                              { from.left - left, from.right - left }, source.width,
                              cairo_image_surface_get_width (source.surface));
    const Axis y = AlongAxis (grid.Y (), { double (rect.top), double (rect.bottom) }, source.grid.Y (),
                              { from.top - top, from.bottom - top }, source.height,
                              cairo_image_surface_get_height (source.surface));
    if (x.IsEmpty () || y.IsEmpty ())
        return;
    CairoSurface area = View (source.surface, x, y);
    if (blend.key || source.surface == cairo_get_target (target)) // what is written must not be read again
    {
        CairoSurface copy = Alike (area.get ());
        if (!copy)
            return;
        CopyPixels (area.get (), copy.get (), blend.key);
        area = std::move (copy);
    }
    SetSource (target, area.get (), x, y);
    Paint (target, x, y, blend.alpha);
    cairo_set_source_rgb (target, 0.0, 0.0, 0.0); // lets go of the area, whose pixels may go before the target does
}

CairoSurface WithoutKey (cairo_surface_t* pixels, ZColor key)
{
    CairoSurface copy = Alike (pixels);
    if (!copy || CopyPixels (pixels, copy.get (), key) == 0)
        return nullptr;
    return copy;
}

} // namespace tessaly
