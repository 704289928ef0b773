#pragma once

#include "canvas_imp.h"
#include "changed_area.h"
#include "gdiplus_objects.h"
#include "pixel_grid.h"
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tessaly
{

/// Drawing with GDI+. What it draws into is up to the derived class. One thread.
///
/// Rectangles, clips and copies cover whole pixels at every scale, as PixelGrid rounds them. Straight lines one
/// coordinate wide cover the rectangles of their coordinates, the last included. Other lines and the edges of polygons
/// follow GDI+'s own rules, with smoothing where their points lie between whole coordinates or the surface is denser.
///
/// The clip is kept in a path beside the graphics object, which is brought in for the length of each operation; so Save
/// and Restore have nothing to do.
class ZWinGDIPlusCanvasImp : public ZCanvasImp
{
public:
    ZWinGDIPlusCanvasImp (const ZWinGDIPlusCanvasImp&) = delete;
    ZWinGDIPlusCanvasImp& operator= (const ZWinGDIPlusCanvasImp&) = delete;

    virtual Gdiplus::GpGraphics* GetGraphics () const = 0; ///< borrowed; null when it could not be made
    virtual Gdiplus::GpImage* GetImage () const = 0;       ///< borrowed: what copies read; null when there is none

    std::unique_ptr<ZCanvasImp> CreateOffscreenImp (const ZRect& rect) override;
    double GetScale () const override { return grid.Scale (); }
    const PixelGrid& Grid () const { return grid; }
    /// @param area  not owned: gets what is drawn from here on, in pixels, until another is given; null: nothing
    void TrackChanges (ChangedArea* area) { changes = area; }

    void Save () override {}
    void Restore () override {}
    void SetClipRect (const ZRect& rect) override;
    void SetClipEllipse (const ZRect& rect) override;
    void ClearClip () override;
    void Clear (const ZRect& rect) override;

    void SetColor (ZColor color, std::uint8_t alpha) override;
    void SetLineWidth (std::int32_t pixels) override;
    void SetLineStyle (std::int32_t style) override;
    void MoveTo (ZPoint point) override { penPosition = point; }
    void LineTo (ZPoint point) override;
    void FrameRect (const ZRect& rect) override;
    void FillRect (const ZRect& rect) override;
    void FramePolygon (std::span<const ZPoint> points) override;
    void FillPolygon (std::span<const ZPoint> points) override;
    void DrawPolyline (std::span<const ZPointF> points, ZPoint offset) override;
    void FillPolygon (std::span<const ZPointF> points, ZPoint offset) override;

    void SetFont (std::string_view name, std::int32_t pixels, std::int32_t style) override;
    void SetFontSize (std::int32_t index, std::int32_t style) override;
    std::int32_t GetFontSize () const override { return static_cast<std::int32_t> (fontSize); }
    std::int32_t GetTextWidth (std::string_view text) override;
    void DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment) override;

    void CopyCanvasPlain (ZCanvasImp& source, const ZRect& rect, ZPoint from) override;
    void CopyCanvasKeyed (ZCanvasImp& source, const ZRect& rect, ZPoint from, ZColor key) override;
    void CopyCanvasAlpha (ZCanvasImp& source, const ZRect& rect, ZPoint from, std::uint8_t alpha) override;
    void StretchCanvas (ZCanvasImp& source, const ZRect& rect, const ZRect& from) override;
    void DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from) override;
    void DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor key) override;
    void DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha) override;
    void StretchBitmap (ZBitmapImp& bitmap, const ZRect& rect, const ZRect& from) override;

protected:
    explicit ZWinGDIPlusCanvasImp (const PixelGrid& pixelGrid);

private:
    class ClipGuard;
    struct Font;
    struct CopySource;

    static CopySource SourceOf (ZCanvasImp& canvas);
    static CopySource SourceOf (ZBitmapImp& bitmap);
    void Copy (const CopySource& source, const ZRect& rect, const ZRect& from,
               const Gdiplus::GpImageAttributes* attributes);
    void CopyKeyed (const CopySource& source, const ZRect& rect, ZPoint from, ZColor key);
    void CopyAlpha (const CopySource& source, const ZRect& rect, ZPoint from, std::uint8_t alpha);

    Font MakeFont (double pixels) const;
    bool IsPlainScale () const { return grid.Scale () == 1.0; }
    void Note (const ZRect& pixels);
    void FillPixels (const ZRect& rect);
    void DrawSegment (ZPoint from, ZPoint to);
    Gdiplus::GpPointF Place (double x, double y) const;
    void Outline (std::span<const Gdiplus::GpPointF> points);
    ZRect PixelsAround (std::span<const Gdiplus::GpPointF> points) const;
    std::span<const Gdiplus::GpPoint> DevicePoints (std::span<const ZPoint> points);
    std::span<const Gdiplus::GpPointF> DensePoints (std::span<const ZPoint> points);
    std::span<const Gdiplus::GpPointF> DensePoints (std::span<const ZPointF> points, ZPoint offset);

    PixelGrid grid;
    ChangedArea* changes = nullptr; // not owned: the window's; null while nobody asks

    std::vector<Gdiplus::GpPoint> pointBuffer;
    std::vector<Gdiplus::GpPointF> densePointBuffer;
    ZPoint penPosition;
    std::int32_t lineWidth = 1; // coordinates
    std::int32_t lineStyle = kSolidLine;
    GdiplusObject<Gdiplus::GpPen> pen;
    GdiplusObject<Gdiplus::GpSolidFill> brush;
    std::array<wchar_t, 256> fontName{ L"Arial" };
    float fontSize = 12.0F; // coordinates
    std::int32_t fontStyle = Gdiplus::FontStyleRegular;
    GdiplusObject<Gdiplus::GpPath> clipPath;
    bool nothingShows = false; // the clip is an empty rectangle, which no path can hold
};

} // namespace tessaly
