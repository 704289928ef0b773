#include "win_gdiplus_canvas_imp.h"

#include "clip_guard.h"
#include "near_points.h"
#include "straight_line.h"
#include "win_gdiplus_offscreen_canvas_imp.h"
#include <algorithm>
#include <cmath>
#include <utility>

namespace tessaly
{

namespace
{

constexpr std::int32_t kWidestLine = 1000;
constexpr Gdiplus::ARGB kBlack = 0xFF000000;

/// Smooth edges for the length of one call.
class Smoothing
{
public:
    explicit Smoothing (Gdiplus::GpGraphics* on)
        : graphics (on)
    {
        gdip::GdipSetSmoothingMode (graphics, Gdiplus::SmoothingModeAntiAlias);
    }
    ~Smoothing () { gdip::GdipSetSmoothingMode (graphics, Gdiplus::SmoothingModeDefault); }
    Smoothing (const Smoothing&) = delete;
    Smoothing& operator= (const Smoothing&) = delete;

private:
    Gdiplus::GpGraphics* graphics; // not owned
};

} // namespace

ZWinGDIPlusCanvasImp::ZWinGDIPlusCanvasImp (const PixelGrid& pixelGrid)
    : grid (pixelGrid)
{
    Gdiplus::GpPen* newPen = nullptr;
    gdip::GdipCreatePen1 (kBlack, static_cast<Gdiplus::REAL> (grid.Scale ()), Gdiplus::UnitPixel, &newPen);
    pen.reset (newPen);
    gdip::GdipSetPenLineCap197819 (newPen, Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapRound);
    Gdiplus::GpSolidFill* newBrush = nullptr;
    gdip::GdipCreateSolidFill (kBlack, &newBrush);
    brush.reset (newBrush);
    Gdiplus::GpPath* newPath = nullptr;
    gdip::GdipCreatePath (Gdiplus::FillModeAlternate, &newPath);
    clipPath.reset (newPath);
}

std::unique_ptr<ZCanvasImp> ZWinGDIPlusCanvasImp::CreateOffscreenImp (const ZRect& rect)
{
    return std::make_unique<ZWinGDIPlusOffscreenCanvasImp> (*this, rect);
}

// Clip

void ZWinGDIPlusCanvasImp::SetClipRect (const ZRect& rect)
{
    ClearClip ();
    const ZRect pixels = grid.Pixels (rect);
    nothingShows = pixels.IsEmpty ();
    if (!nothingShows)
        gdip::GdipAddPathRectangleI (clipPath.get (), pixels.left, pixels.top, pixels.Width (), pixels.Height ());
}

void ZWinGDIPlusCanvasImp::SetClipEllipse (const ZRect& rect)
{
    ClearClip ();
    const ZRect pixels = grid.Pixels ({ Near (rect).left - 1, Near (rect).top - 1, rect.right, rect.bottom });
    nothingShows = pixels.IsEmpty ();
    if (!nothingShows)
        gdip::GdipAddPathEllipseI (clipPath.get (), pixels.left, pixels.top, pixels.Width (), pixels.Height ());
}

void ZWinGDIPlusCanvasImp::ClearClip ()
{
    gdip::GdipResetPath (clipPath.get ());
    nothingShows = false;
}

void ZWinGDIPlusCanvasImp::Clear (const ZRect& rect)
{
    if (rect.IsEmpty ())
        return;
    const ClipGuard guard (*this);
    Note (grid.Pixels (rect));
    guard.Intersect (grid.Pixels (rect));
    gdip::GdipGraphicsClear (GetGraphics (), 0);
}

// Attributes

void ZWinGDIPlusCanvasImp::SetColor (ZColor color, std::uint8_t alpha)
{
    const auto argb = static_cast<Gdiplus::ARGB> (alpha) << 24U | static_cast<Gdiplus::ARGB> (color.red) << 16U |
                      static_cast<Gdiplus::ARGB> (color.green) << 8U | color.blue;
    gdip::GdipSetPenColor (pen.get (), argb);
    gdip::GdipSetSolidFillColor (brush.get (), argb);
}

void ZWinGDIPlusCanvasImp::SetLineWidth (std::int32_t pixels)
{
    lineWidth = std::clamp (pixels, 1, kWidestLine);
    gdip::GdipSetPenWidth (pen.get (), static_cast<Gdiplus::REAL> (lineWidth * grid.Scale ()));
}

void ZWinGDIPlusCanvasImp::SetLineStyle (std::int32_t style)
{
    lineStyle = style == kDashedLine ? kDashedLine : kSolidLine;
    gdip::GdipSetPenDashStyle (pen.get (), lineStyle == kDashedLine ? Gdiplus::DashStyleDash : Gdiplus::DashStyleSolid);
}

// Shapes

/// What is drawn within the clip and these pixels changes the surface. Within a ClipGuard.
void ZWinGDIPlusCanvasImp::Note (const ZRect& pixels)
{
    if (changes == nullptr)
        return;
    Gdiplus::GpRect clip;
    gdip::GdipGetVisibleClipBoundsI (GetGraphics (), &clip);
    changes->Add ({ std::max (pixels.left, clip.X), std::max (pixels.top, clip.Y),
                    std::min (pixels.right, clip.X + clip.Width), std::min (pixels.bottom, clip.Y + clip.Height) });
}

/// Within a ClipGuard.
void ZWinGDIPlusCanvasImp::FillPixels (const ZRect& rect)
{
    const ZRect pixels = grid.Pixels (rect);
    if (pixels.IsEmpty ())
        return;
    Note (pixels);
    gdip::GdipFillRectangleI (GetGraphics (), brush.get (), pixels.left, pixels.top, pixels.Width (), pixels.Height ());
}

/// Where a point lies for GDI+, which counts from the middle of pixels: lines of an odd width run through the middle of
/// coordinates, others between two.
Gdiplus::GpPointF ZWinGDIPlusCanvasImp::Place (double x, double y) const
{
    constexpr double kMiddle = 0.5;
    const double shift = lineWidth % 2 == 1 ? kMiddle : 0.0;
    return { static_cast<Gdiplus::REAL> (grid.X ().Exact (x + shift) - kMiddle),
             static_cast<Gdiplus::REAL> (grid.Y ().Exact (y + shift) - kMiddle) };
}

void ZWinGDIPlusCanvasImp::LineTo (ZPoint point)
{
    const ClipGuard guard (*this);
    DrawSegment (Near (std::exchange (penPosition, point)), Near (point));
}

/// Within a ClipGuard.
void ZWinGDIPlusCanvasImp::DrawSegment (ZPoint from, ZPoint to)
{
    if (IsPlainScale ())
    {
        Note ({ std::min (from.x, to.x) - lineWidth, std::min (from.y, to.y) - lineWidth,
                std::max (from.x, to.x) + lineWidth + 1, std::max (from.y, to.y) + lineWidth + 1 });
        gdip::GdipDrawLineI (GetGraphics (), pen.get (), from.x, from.y, to.x, to.y);
    }
    else if (lineWidth == 1 && (from.x == to.x || from.y == to.y))
        ForStraightLine (from, to, lineStyle == kDashedLine, [this] (const ZRect& dash) { FillPixels (dash); });
    else
    {
        const Gdiplus::GpPointF ends[]{ Place (from.x, from.y), Place (to.x, to.y) };
        Outline (ends);
    }
}

void ZWinGDIPlusCanvasImp::FrameRect (const ZRect& rect)
{
    if (rect.IsEmpty ())
        return;
    const ZRect inside = Near (rect);
    const ZRect line{ inside.left, inside.top, inside.right - 1, inside.bottom - 1 };
    if (IsPlainScale ())
    {
        const ClipGuard guard (*this);
        Note ({ line.left - lineWidth, line.top - lineWidth, inside.right + lineWidth, inside.bottom + lineWidth });
        gdip::GdipDrawRectangleI (GetGraphics (), pen.get (), line.left, line.top, line.Width (), line.Height ());
        return;
    }
    if (lineStyle == kDashedLine || lineWidth > 1)
    {
        const ZPoint corners[]{
            line.TopLeft (), { line.right, line.top }, line.BottomRight (), { line.left, line.bottom }
        };
        FramePolygon (corners);
        return;
    }
    const ClipGuard guard (*this); // each corner once, for colours that are not opaque
    FillPixels ({ line.left, line.top, line.right, line.top + 1 });
    FillPixels ({ line.right, line.top, line.right + 1, line.bottom });
    FillPixels ({ line.left + 1, line.bottom, line.right + 1, line.bottom + 1 });
    FillPixels ({ line.left, line.top + 1, line.left + 1, line.bottom + 1 });
}

void ZWinGDIPlusCanvasImp::FillRect (const ZRect& rect)
{
    if (rect.IsEmpty ())
        return;
    const ClipGuard guard (*this);
    FillPixels (Near (rect));
}

ZRect ZWinGDIPlusCanvasImp::PixelsAround (std::span<const Gdiplus::GpPointF> points) const
{
    ZRect area;
    const auto margin = static_cast<std::int32_t> (std::ceil (lineWidth * grid.Scale ())) + 1;
    for (const auto& point : points)
    {
        const auto x = static_cast<std::int32_t> (point.X);
        const auto y = static_cast<std::int32_t> (point.Y);
        const ZRect here{ x - margin, y - margin, x + margin + 1, y + margin + 1 };
        area = area.IsZero () ? here
                              : ZRect{ std::min (area.left, here.left), std::min (area.top, here.top),
                                       std::max (area.right, here.right), std::max (area.bottom, here.bottom) };
    }
    return area;
}

/// Within a ClipGuard.
void ZWinGDIPlusCanvasImp::Outline (std::span<const Gdiplus::GpPointF> points)
{
    const Smoothing smooth (GetGraphics ());
    Note (PixelsAround (points));
    gdip::GdipDrawLines (GetGraphics (), pen.get (), points.data (), static_cast<INT> (points.size ()));
}

std::span<const Gdiplus::GpPoint> ZWinGDIPlusCanvasImp::DevicePoints (std::span<const ZPoint> points)
{
    pointBuffer.clear ();
    for (const auto& given : points)
    {
        const ZPoint point = Near (given);
        pointBuffer.emplace_back (point.x, point.y);
    }
    return pointBuffer;
}

std::span<const Gdiplus::GpPointF> ZWinGDIPlusCanvasImp::DensePoints (std::span<const ZPoint> points)
{
    densePointBuffer.clear ();
    for (const auto& given : points)
    {
        const ZPoint point = Near (given);
        densePointBuffer.push_back (Place (point.x, point.y));
    }
    return densePointBuffer;
}

std::span<const Gdiplus::GpPointF> ZWinGDIPlusCanvasImp::DensePoints (std::span<const ZPointF> points, ZPoint offset)
{
    densePointBuffer.clear ();
    for (const auto& given : points)
    {
        const ZPointF point = Near (given, offset);
        densePointBuffer.push_back (Place (point.x, point.y));
    }
    return densePointBuffer;
}

void ZWinGDIPlusCanvasImp::FramePolygon (std::span<const ZPoint> points)
{
    if (points.empty ())
        return;
    const ClipGuard guard (*this);
    const auto count = static_cast<INT> (points.size ());
    const auto dense = DensePoints (points);
    Note (PixelsAround (dense));
    if (IsPlainScale ())
    {
        gdip::GdipDrawPolygonI (GetGraphics (), pen.get (), DevicePoints (points).data (), count);
        return;
    }
    const Smoothing smooth (GetGraphics ());
    gdip::GdipDrawPolygon (GetGraphics (), pen.get (), dense.data (), count);
}

void ZWinGDIPlusCanvasImp::FillPolygon (std::span<const ZPoint> points)
{
    if (points.empty ())
        return;
    const ClipGuard guard (*this);
    const auto count = static_cast<INT> (points.size ());
    const auto dense = DensePoints (points);
    Note (PixelsAround (dense));
    if (IsPlainScale ())
    {
        gdip::GdipFillPolygonI (GetGraphics (), brush.get (), DevicePoints (points).data (), count,
                                Gdiplus::FillModeAlternate);
        return;
    }
    const Smoothing smooth (GetGraphics ());
    gdip::GdipFillPolygon (GetGraphics (), brush.get (), dense.data (), count, Gdiplus::FillModeAlternate);
}

void ZWinGDIPlusCanvasImp::DrawPolyline (std::span<const ZPointF> points, ZPoint offset)
{
    if (points.size () < 2)
        return;
    const ClipGuard guard (*this);
    if (!std::all_of (points.begin (), points.end (), IsWhole))
    {
        Outline (DensePoints (points, offset));
        return;
    }
    for (std::size_t i = 1; i < points.size (); ++i)
        DrawSegment (Whole (Near (points[i - 1], offset)), Whole (Near (points[i], offset)));
}

void ZWinGDIPlusCanvasImp::FillPolygon (std::span<const ZPointF> points, ZPoint offset)
{
    if (points.empty ())
        return;
    const ClipGuard guard (*this);
    const auto dense = DensePoints (points, offset);
    const bool plain = IsPlainScale () && std::all_of (points.begin (), points.end (), IsWhole);
    Note (PixelsAround (dense));
    std::optional<Smoothing> smooth;
    if (!plain)
        smooth.emplace (GetGraphics ());
    gdip::GdipFillPolygon (GetGraphics (), brush.get (), dense.data (), static_cast<INT> (dense.size ()),
                           Gdiplus::FillModeAlternate);
}

} // namespace tessaly
