#include "cairo_canvas_imp.h"

#include "cairo_image.h"
#include "near_points.h"
#include "straight_line.h"
#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

namespace tessaly
{

namespace
{

constexpr std::int32_t kWidestLine = 1000;
constexpr double kWholeTurn = 2.0 * std::numbers::pi;

} // namespace

ZCairoCanvasImp::ZCairoCanvasImp (std::int32_t w, std::int32_t h, double scale)
    : ZCairoCanvasImp (w, h, PixelGrid (scale), std::make_shared<PangoText> (PixelGrid (scale).Scale ()))
{
}

ZCairoCanvasImp::ZCairoCanvasImp (std::int32_t w, std::int32_t h, const PixelGrid& pixelGrid,
                                  std::shared_ptr<PangoText> sharedText)
    : width (std::max (w, 0))
    , height (std::max (h, 0))
    , grid (pixelGrid)
    , surface (cairo_image_surface_create (CAIRO_FORMAT_ARGB32, PixelSize ().right, PixelSize ().bottom))
    , context (cairo_create (surface.get ()))
    , text (std::move (sharedText))
{
    cairo_set_line_cap (context.get (), CAIRO_LINE_CAP_ROUND);
    cairo_set_fill_rule (context.get (), CAIRO_FILL_RULE_EVEN_ODD);
}

ZCairoCanvasImp::~ZCairoCanvasImp () = default;

std::unique_ptr<ZCanvasImp> ZCairoCanvasImp::CreateOffscreenImp (const ZRect& rect)
{
    return std::unique_ptr<ZCanvasImp> (
        new ZCairoCanvasImp (rect.Width (), rect.Height (), grid.PartAt (rect.TopLeft ()), text));
}

cairo_surface_t* ZCairoCanvasImp::Surface () const
{
    cairo_surface_flush (surface.get ());
    return surface.get ();
}

// Clip

void ZCairoCanvasImp::Save ()
{
    savedClips.push_back (clip);
}

void ZCairoCanvasImp::Restore ()
{
    if (savedClips.empty ())
        return;
    const Clip saved = savedClips.back ();
    savedClips.pop_back ();
    SetClip (saved);
}

void ZCairoCanvasImp::SetClip (const Clip& wanted)
{
    clip = wanted;
    cairo_reset_clip (context.get ());
    if (clip.kind == Clip::kRect)
    {
        AddRect (clip.rect);
        cairo_clip (context.get ());
    }
    else if (clip.kind == Clip::kEllipse)
        ClipToEllipse (clip.rect);
}

void ZCairoCanvasImp::ClipToEllipse (const ZRect& rect)
{
    const ZPoint topLeft = Near (rect.TopLeft ()) - ZPoint{ 1, 1 };
    const ZPoint bottomRight = Near (rect.BottomRight ());
    const double radiusX = (bottomRight.x - topLeft.x) * 0.5;
    const double radiusY = (bottomRight.y - topLeft.y) * 0.5;
    if (radiusX > 0.0 && radiusY > 0.0)
    {
        cairo_save (context.get ());
        cairo_translate (context.get (), grid.X ().Exact (topLeft.x + radiusX), grid.Y ().Exact (topLeft.y + radiusY));
        cairo_scale (context.get (), grid.Scale (), grid.Scale ());
        cairo_scale (context.get (), radiusX, radiusY);
        cairo_arc (context.get (), 0.0, 0.0, 1.0, 0.0, kWholeTurn);
        cairo_restore (context.get ());
    }
    cairo_set_antialias (context.get (), CAIRO_ANTIALIAS_NONE);
    cairo_clip (context.get ());
    cairo_set_antialias (context.get (), CAIRO_ANTIALIAS_DEFAULT);
}

void ZCairoCanvasImp::Clear (const ZRect& rect)
{
    AddRect (rect);
    NotePath (0.0);
    cairo_set_operator (context.get (), CAIRO_OPERATOR_CLEAR);
    cairo_fill (context.get ());
    cairo_set_operator (context.get (), CAIRO_OPERATOR_OVER);
}

// Shapes

void ZCairoCanvasImp::SetColor (ZColor wanted, std::uint8_t alpha)
{
    color = wanted;
    colorAlpha = alpha;
}

void ZCairoCanvasImp::SetLineWidth (std::int32_t pixels)
{
    lineWidth = std::clamp (pixels, 1, kWidestLine);
}

void ZCairoCanvasImp::SetLineStyle (std::int32_t style)
{
    lineStyle = style == kDashedLine ? kDashedLine : kSolidLine;
}

/// Adds a rectangle's pixels to the path; none for an empty one.
void ZCairoCanvasImp::AddRect (const ZRect& rect)
{
    if (rect.IsEmpty ())
        return;
    const ZRect pixels = grid.Pixels (rect);
    cairo_rectangle (context.get (), pixels.left, pixels.top, pixels.Width (), pixels.Height ());
}

void ZCairoCanvasImp::UseColor ()
{
    cairo_set_source_rgba (context.get (), color.red / 255.0, color.green / 255.0, color.blue / 255.0,
                           colorAlpha / 255.0);
}

/// What is drawn within the clip and these pixels changes the surface.
void ZCairoCanvasImp::Note (const ZRect& pixels)
{
    if (changes == nullptr)
        return;
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    cairo_clip_extents (context.get (), &left, &top, &right, &bottom);
    const ZRect inner{ static_cast<std::int32_t> (std::floor (left)), static_cast<std::int32_t> (std::floor (top)),
                       static_cast<std::int32_t> (std::ceil (right)), static_cast<std::int32_t> (std::ceil (bottom)) };
    changes->Add ({ std::max (pixels.left, inner.left), std::max (pixels.top, inner.top),
                    std::min (pixels.right, inner.right), std::min (pixels.bottom, inner.bottom) });
}

/// The same for the path. @param margin  pixels that a stroke reaches beyond it
void ZCairoCanvasImp::NotePath (double margin)
{
    if (changes == nullptr)
        return;
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    cairo_path_extents (context.get (), &left, &top, &right, &bottom);
    Note ({ static_cast<std::int32_t> (std::floor (left - margin)),
            static_cast<std::int32_t> (std::floor (top - margin)),
            static_cast<std::int32_t> (std::ceil (right + margin)),
            static_cast<std::int32_t> (std::ceil (bottom + margin)) });
}

void ZCairoCanvasImp::FillPath ()
{
    NotePath (0.0);
    UseColor ();
    cairo_fill (context.get ());
}

void ZCairoCanvasImp::StrokePath ()
{
    const double pixels = lineWidth * grid.Scale ();
    // A round end adds half a line width to either end of a dash.
    const double dashes[]{ (kDash - 1) * pixels, (kGap + 1) * pixels };
    cairo_set_dash (context.get (), dashes, lineStyle == kDashedLine ? 2 : 0, 0.0);
    cairo_set_line_width (context.get (), pixels);
    NotePath (pixels);
    UseColor ();
    cairo_stroke (context.get ());
}

void ZCairoCanvasImp::LineTo (ZPoint point)
{
    DrawSegment (Near (std::exchange (pen, point)), Near (point));
}

void ZCairoCanvasImp::DrawSegment (ZPoint from, ZPoint to)
{
    if (lineWidth == 1 && (from.x == to.x || from.y == to.y))
    {
        ForStraightLine (from, to, lineStyle == kDashedLine, [this] (const ZRect& dash) { AddRect (dash); });
        FillPath ();
        return;
    }
    const ZPoint ends[]{ from, to };
    AddPolygon (ends);
    StrokePath ();
}

void ZCairoCanvasImp::FrameRect (const ZRect& rect)
{
    if (rect.IsEmpty ())
        return;
    const ZRect inside = Near (rect);
    const ZRect line{ inside.left, inside.top, inside.right - 1, inside.bottom - 1 };
    if (lineStyle == kDashedLine)
    {
        const ZPoint corners[]{
            line.TopLeft (), { line.right, line.top }, line.BottomRight (), { line.left, line.bottom }
        };
        FramePolygon (corners);
        return;
    }
    // The outer rectangle without the inner one, by the even-odd rule: a transparent colour blends once in the corners.
    const std::int32_t before = lineWidth / 2;
    const std::int32_t after = lineWidth - before;
    AddRect ({ line.left - before, line.top - before, line.right + after, line.bottom + after });
    AddRect ({ line.left + after, line.top + after, line.right - before, line.bottom - before });
    FillPath ();
}

void ZCairoCanvasImp::FillRect (const ZRect& rect)
{
    AddRect (rect);
    FillPath ();
}

/// Adds a point to the path, where a line of the present width has its middle.
void ZCairoCanvasImp::AddPoint (double x, double y)
{
    const double shift = lineWidth % 2 == 1 ? 0.5 : 0.0;
    cairo_line_to (context.get (), grid.X ().Exact (x + shift), grid.Y ().Exact (y + shift));
}

void ZCairoCanvasImp::AddPolygon (std::span<const ZPoint> points)
{
    for (const auto& far : points)
    {
        const ZPoint point = Near (far);
        AddPoint (point.x, point.y);
    }
}

void ZCairoCanvasImp::AddPolygon (std::span<const ZPointF> points, ZPoint offset)
{
    for (const auto& far : points)
    {
        const ZPointF point = Near (far, offset);
        AddPoint (point.x, point.y);
    }
}

void ZCairoCanvasImp::FramePolygon (std::span<const ZPoint> points)
{
    AddPolygon (points);
    cairo_close_path (context.get ());
    StrokePath ();
}

void ZCairoCanvasImp::FillPolygon (std::span<const ZPoint> points)
{
    AddPolygon (points);
    FillPath ();
}

void ZCairoCanvasImp::DrawPolyline (std::span<const ZPointF> points, ZPoint offset)
{
    if (!std::all_of (points.begin (), points.end (), IsWhole))
    {
        AddPolygon (points, offset);
        StrokePath ();
        return;
    }
    for (std::size_t i = 1; i < points.size (); ++i)
        DrawSegment (Whole (Near (points[i - 1], offset)), Whole (Near (points[i], offset)));
}

void ZCairoCanvasImp::FillPolygon (std::span<const ZPointF> points, ZPoint offset)
{
    AddPolygon (points, offset);
    FillPath ();
}

// Text

void ZCairoCanvasImp::SetFont (std::string_view name, std::int32_t pixels, std::int32_t style)
{
    font = { std::string (name), pixels, style };
}

void ZCairoCanvasImp::SetFontSize (std::int32_t index, std::int32_t style)
{
    constexpr auto kLast = static_cast<std::int32_t> (std::size (kFontSizes)) - 1;
    font = { FontRequest{}.name, kFontSizes[std::clamp (index, 0, kLast)], style };
}

std::int32_t ZCairoCanvasImp::GetTextWidth (std::string_view words)
{
    return text->Width (words, font);
}

void ZCairoCanvasImp::DrawText (std::string_view words, const ZRect& rect, std::int32_t alignment)
{
    if (rect.IsEmpty ())
        return;
    cairo_save (context.get ());
    AddRect (rect);
    cairo_clip (context.get ());
    Note (grid.Pixels (rect));
    UseColor ();
    text->Draw (context.get (), grid, words, font, rect, alignment);
    cairo_restore (context.get ());
}

// Copies

CopySource ZCairoCanvasImp::Pixels () const
{
    return { Surface (), grid, width, height };
}

void ZCairoCanvasImp::Copy (const CopySource& source, const ZRect& rect, const ZRect& from, const CopyBlend& blend)
{
    if (!rect.IsEmpty ())
        Note (grid.Pixels (rect));
    CopyArea (context.get (), grid, rect, source, from, blend);
}

void ZCairoCanvasImp::CopyCanvasPlain (ZCanvasImp& source, const ZRect& rect, ZPoint from)
{
    if (const auto* ours = dynamic_cast<ZCairoCanvasImp*> (&source))
        Copy (ours->Pixels (), rect, AreaAt (from, rect), {});
}

void ZCairoCanvasImp::CopyCanvasKeyed (ZCanvasImp& source, const ZRect& rect, ZPoint from, ZColor key)
{
    if (const auto* ours = dynamic_cast<ZCairoCanvasImp*> (&source))
        Copy (ours->Pixels (), rect, AreaAt (from, rect), { 1.0, key });
}

void ZCairoCanvasImp::CopyCanvasAlpha (ZCanvasImp& source, const ZRect& rect, ZPoint from, std::uint8_t alpha)
{
    if (const auto* ours = dynamic_cast<ZCairoCanvasImp*> (&source))
        Copy (ours->Pixels (), rect, AreaAt (from, rect), { alpha / 255.0, {} });
}

void ZCairoCanvasImp::StretchCanvas (ZCanvasImp& source, const ZRect& rect, const ZRect& from)
{
    if (const auto* ours = dynamic_cast<ZCairoCanvasImp*> (&source))
        Copy (ours->Pixels (), rect, from, {});
}

void ZCairoCanvasImp::DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from)
{
    if (auto* ours = dynamic_cast<ZCairoImage*> (&bitmap))
        Copy (ours->Part (AreaAt (from, rect)).source, rect, AreaAt (from, rect), {});
}

void ZCairoCanvasImp::DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor key)
{
    if (auto* ours = dynamic_cast<ZCairoImage*> (&bitmap))
        Copy (ours->PartWithoutKey (AreaAt (from, rect), key).source, rect, AreaAt (from, rect), {});
}

void ZCairoCanvasImp::DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha)
{
    if (auto* ours = dynamic_cast<ZCairoImage*> (&bitmap))
        Copy (ours->Part (AreaAt (from, rect)).source, rect, AreaAt (from, rect), { alpha / 255.0, {} });
}

void ZCairoCanvasImp::StretchBitmap (ZBitmapImp& bitmap, const ZRect& rect, const ZRect& from)
{
    if (auto* ours = dynamic_cast<ZCairoImage*> (&bitmap))
        Copy (ours->Part (from).source, rect, from, {});
}

} // namespace tessaly
