#pragma once

#include "cairo_copy.h"
#include "cairo_handles.h"
#include "canvas_imp.h"
#include "changed_area.h"
#include "pango_text.h"
#include "pixel_grid.h"
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace tessaly
{

/// Drawing with Cairo into an image in memory: the window's retained surface, or an offscreen one. One thread.
///
/// Rectangles, clips and copies cover whole pixels at every scale, as PixelGrid rounds them, and nothing of them is
/// smoothed. So nothing half covered is left at their edges, and a repaint through a clip gives what the first painting
/// gave. This holds for the ellipse clip too. Lines and outlines are smoothed. They run through the middle of
/// coordinates' pixels when their width is odd and between two when it is even, so that level and upright ones are
/// sharp; those of width 1 cover exactly the rectangles of their coordinates. Filled polygons are smoothed and end
/// where an outline of the same points and the present line width runs; with an even width an upright one covers what
/// FillRect covers.
class ZCairoCanvasImp final : public ZCanvasImp
{
public:
    /// A transparent surface of scale * width by scale * height pixels, rounded. A size below 0 counts as 0; one beyond
    /// Cairo's 32767 pixels is a surface on which nothing is drawn.
    ZCairoCanvasImp (std::int32_t width, std::int32_t height, double scale);
    ~ZCairoCanvasImp () override;

    std::unique_ptr<ZCanvasImp> CreateOffscreenImp (const ZRect& rect) override; ///< shares the fonts
    double GetScale () const override { return grid.Scale (); }

    /// The pixels, 32 bits with premultiplied alpha; for Cairo's own use, as the window's source or to write a PNG.
    /// Borrowed from this, all drawing done.
    cairo_surface_t* Surface () const;
    /// @param area  not owned: gets what is drawn from here on, until another is given; null: nothing is tracked
    void TrackChanges (ChangedArea* area) { changes = area; }
    ZRect PixelSize () const { return grid.Pixels ({ 0, 0, width, height }); } ///< from (0, 0)

    void Save () override;
    void Restore () override;
    void SetClipRect (const ZRect& rect) override { SetClip ({ Clip::kRect, rect }); }
    void SetClipEllipse (const ZRect& rect) override { SetClip ({ Clip::kEllipse, rect }); }
    void ClearClip () override { SetClip ({}); }
    void Clear (const ZRect& rect) override;

    void SetColor (ZColor color, std::uint8_t alpha) override;
    void SetLineWidth (std::int32_t pixels) override; ///< 1 to 1000, clamped
    void SetLineStyle (std::int32_t style) override;  ///< a dash is 3 line widths long with its round ends, a gap 1
    void MoveTo (ZPoint point) override { pen = point; }
    void LineTo (ZPoint point) override;
    void FrameRect (const ZRect& rect) override;
    void FillRect (const ZRect& rect) override;
    void FramePolygon (std::span<const ZPoint> points) override;
    void FillPolygon (std::span<const ZPoint> points) override;
    void DrawPolyline (std::span<const ZPointF> points, ZPoint offset) override;
    void FillPolygon (std::span<const ZPointF> points, ZPoint offset) override;

    void SetFont (std::string_view name, std::int32_t pixels, std::int32_t style) override;
    void SetFontSize (std::int32_t index,
                      std::int32_t style) override; ///< another index than 0 to 4 goes to the nearest
    std::int32_t GetFontSize () const override { return font.pixels; }
    std::int32_t GetTextWidth (std::string_view text) override;
    void DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment) override; ///< and within the clip

    void CopyCanvasPlain (ZCanvasImp& source, const ZRect& rect, ZPoint from) override;
    void CopyCanvasKeyed (ZCanvasImp& source, const ZRect& rect, ZPoint from, ZColor key) override;
    void CopyCanvasAlpha (ZCanvasImp& source, const ZRect& rect, ZPoint from, std::uint8_t alpha) override;
    void StretchCanvas (ZCanvasImp& source, const ZRect& rect, const ZRect& from) override;
    void DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from) override;
    void DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor key) override;
    void DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha) override;
    void StretchBitmap (ZBitmapImp& bitmap, const ZRect& rect, const ZRect& from) override;

private:
    struct Clip
    {
        enum Kind
        {
            kNone,
            kRect,
            kEllipse
        };
        Kind kind = kNone;
        ZRect rect;
    };

    ZCairoCanvasImp (std::int32_t width, std::int32_t height, const PixelGrid& grid, std::shared_ptr<PangoText> text);

    void SetClip (const Clip& wanted);
    void ClipToEllipse (const ZRect& rect);
    void AddRect (const ZRect& rect);
    void UseColor ();
    void Note (const ZRect& pixels);
    void NotePath (double margin);
    void FillPath ();
    void StrokePath ();
    void AddPoint (double x, double y);
    void AddPolygon (std::span<const ZPoint> points);
    void AddPolygon (std::span<const ZPointF> points, ZPoint offset);
    void DrawSegment (ZPoint from, ZPoint to);
    void Copy (const CopySource& source, const ZRect& rect, const ZRect& from, const CopyBlend& blend);
    CopySource Pixels () const;

    std::int32_t width;
    std::int32_t height;
    PixelGrid grid;
    CairoSurface surface;
    CairoContext context;
    std::shared_ptr<PangoText> text; // shared with the offscreen imps made from this

    ChangedArea* changes = nullptr; // not owned: the window's; null for an offscreen surface
    Clip clip;
    std::vector<Clip> savedClips;
    ZColor color;
    std::uint8_t colorAlpha = 255;
    std::int32_t lineWidth = 1;
    std::int32_t lineStyle = kSolidLine;
    ZPoint pen;
    FontRequest font;
};

} // namespace tessaly
