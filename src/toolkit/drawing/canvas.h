#pragma once

#include "canvas_imp.h"
#include "geometry.h"
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace tessaly
{

class ZBitmap;

/// What panes draw on. Adds an origin to every coordinate, so that a pane draws at its own frame's coordinates, and
/// hands the call to the platform. An empty destination draws nothing. The modified flag says whether anything was
/// drawn since it was last cleared. Host's user-interface thread; adds no allocation.
class ZCanvas
{
public:
    ZCanvas () = default;
    virtual ~ZCanvas () = default;
    ZCanvas (const ZCanvas&) = delete;
    ZCanvas& operator= (const ZCanvas&) = delete;

    virtual bool IsOffscreen () const = 0;
    virtual ZCanvasImp& GetImp () const = 0;
    std::unique_ptr<ZCanvasImp> CreateOffscreenImp (const ZRect& rect) const ///< rect: in device coordinates
    {
        return GetImp ().CreateOffscreenImp (rect);
    }
    double GetScale () const { return GetImp ().GetScale (); } ///< pixels of the surface a coordinate

    void SetOrigin (ZPoint point) { origin = point; }
    ZPoint GetOrigin () const { return origin; }
    void PointToLocal (ZPoint& point) const { point = point - origin; }
    void PointToDevice (ZPoint& point) const { point = point + origin; }
    void RectToLocal (ZRect& rect) const { rect = rect - origin; }
    void RectToDevice (ZRect& rect) const { rect = rect + origin; }
    void SetModified (bool on) { modified = on; }
    bool IsModified () const { return modified; }

    // The colour key for copies from this canvas
    void SetTransparentColor (ZColor color); ///< also turns keying on
    ZColor GetTransparentColor () const { return transparentColor; }
    void EnableTransparent (bool on) { transparentEnabled = on; }
    bool IsTransparentEnabled () const { return transparentEnabled; }

    void Save () { GetImp ().Save (); }
    void Restore () { GetImp ().Restore (); }
    void SetClipRect (const ZRect& rect) { GetImp ().SetClipRect (rect + origin); }
    void SetClipEllipse (const ZRect& rect) { GetImp ().SetClipEllipse (rect + origin); }
    void ClearClip () { GetImp ().ClearClip (); }
    void Clear (const ZRect& deviceRect) { GetImp ().Clear (deviceRect); } ///< the one rectangle in device coordinates

    void SetColor (ZColor color, std::uint8_t alpha) { GetImp ().SetColor (color, alpha); }
    void SetLineWidth (std::int32_t pixels) { GetImp ().SetLineWidth (pixels); }
    void SetLineStyle (std::int32_t style) { GetImp ().SetLineStyle (style); }
    void MoveTo (std::int32_t x, std::int32_t y) { MoveTo ({ x, y }); }
    void MoveTo (ZPoint point);
    void LineTo (std::int32_t x, std::int32_t y) { LineTo ({ x, y }); }
    void LineTo (ZPoint point);
    void FrameRect (const ZRect& rect);
    void FillRect (const ZRect& rect);
    void FramePolygon (std::span<ZPoint> points); ///< writes to the points while it runs; they come back as they were
    void FillPolygon (std::span<ZPoint> points);  ///< likewise

    // Curves; see ZCanvasImp. A curve that is sharp at any density has a point for each device pixel: a step of
    // 1 / GetScale () a point, put on the pixels by ToDevicePixel.
    void DrawPolyline (std::span<const ZPointF> points);
    void FillPolygon (std::span<const ZPointF> points);
    ZPointF ToDevicePixel (ZPointF point) const; ///< the nearest one that is whole in pixels of the surface

    void SetFont (std::string_view name, std::int32_t pixels, std::int32_t style);
    void SetFontSize (std::int32_t index, std::int32_t style); ///< index 0 to 4, of kFontSizes
    std::int32_t GetFontSize () const { return GetImp ().GetFontSize (); }
    std::int32_t GetTextWidth (std::string_view text) { return GetImp ().GetTextWidth (text); }
    void DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment);

    // From another canvas: the area of the destination's size at `from`, which is in the source's coordinates
    void CopyCanvas (const ZCanvas& source, const ZRect& rect, ZPoint from); ///< keyed if the source says so, or plain
    void CopyCanvasPlain (const ZCanvas& source, const ZRect& rect, ZPoint from);
    void CopyCanvasKeyed (const ZCanvas& source, const ZRect& rect, ZPoint from, ZColor key);
    void CopyCanvasAlpha (const ZCanvas& source, const ZRect& rect, ZPoint from, std::uint8_t alpha);
    void StretchCanvas (const ZCanvas& source, const ZRect& rect, const ZRect& from);

    // From an image: the area of the destination's size at `from`, which is in pixels of the image
    void DrawBitmap (const ZBitmap& bitmap, const ZRect& rect, ZPoint from); ///< keyed if the image says so, or plain
    void DrawBitmapPlain (const ZBitmap& bitmap, const ZRect& rect, ZPoint from);
    void DrawBitmapKeyed (const ZBitmap& bitmap, const ZRect& rect, ZPoint from, ZColor key);
    void DrawBitmapAlpha (const ZBitmap& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha);
    void StretchBitmap (const ZBitmap& bitmap, const ZRect& rect, const ZRect& from);

private:
    ZPoint origin;
    bool modified = false;
    ZColor transparentColor = kDefaultColorKey;
    bool transparentEnabled = false;
};

/// A canvas on the window's surface, made for one paint pass.
class ZOnscreenCanvas final : public ZCanvas
{
public:
    explicit ZOnscreenCanvas (ZCanvasImp& surface)
        : imp (surface)
    {
    }
    bool IsOffscreen () const override { return false; }
    ZCanvasImp& GetImp () const override { return imp; }

private:
    ZCanvasImp& imp; // not owned: the window's
};

/// A canvas with pixels of its own, for a rectangle in its parent's coordinates: what is drawn there with the same
/// coordinates lands in it.
class ZOffscreenCanvas final : public ZCanvas
{
public:
    ZOffscreenCanvas (const ZCanvas& parent, const ZRect& rect);
    bool IsOffscreen () const override { return true; }
    ZCanvasImp& GetImp () const override { return *imp; }

private:
    std::unique_ptr<ZCanvasImp> imp;
};

/// Brackets drawing that changes clip or origin: both are as before when it leaves.
class ZCanvasStateSt
{
public:
    explicit ZCanvasStateSt (ZCanvas& guarded)
        : canvas (guarded)
        , origin (guarded.GetOrigin ())
    {
        canvas.Save ();
    }
    ~ZCanvasStateSt ()
    {
        canvas.Restore ();
        canvas.SetOrigin (origin);
    }
    ZCanvasStateSt (const ZCanvasStateSt&) = delete;
    ZCanvasStateSt& operator= (const ZCanvasStateSt&) = delete;

private:
    ZCanvas& canvas; // not owned: the caller's
    ZPoint origin;
};

} // namespace tessaly
