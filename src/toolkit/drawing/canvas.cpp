#include "canvas.h"

#include "bitmap.h"
#include <cmath>

namespace tessaly
{

namespace
{

/// Moves points by the origin for as long as it lives, in place: a copy would allocate.
class DevicePoints
{
public:
    DevicePoints (std::span<ZPoint> moved, ZPoint by)
        : points (moved)
        , origin (by)
    {
        for (auto& point : points)
            point = point + origin;
    }
    ~DevicePoints ()
    {
        for (auto& point : points)
            point = point - origin;
    }
    DevicePoints (const DevicePoints&) = delete;
    DevicePoints& operator= (const DevicePoints&) = delete;

private:
    std::span<ZPoint> points;
    ZPoint origin;
};

} // namespace

void ZCanvas::SetTransparentColor (ZColor color)
{
    transparentColor = color;
    transparentEnabled = true;
}

void ZCanvas::MoveTo (ZPoint point)
{
    GetImp ().MoveTo (point + origin);
    modified = true;
}

void ZCanvas::LineTo (ZPoint point)
{
    GetImp ().LineTo (point + origin);
    modified = true;
}

void ZCanvas::FrameRect (const ZRect& rect)
{
    GetImp ().FrameRect (rect + origin);
    modified = true;
}

void ZCanvas::FillRect (const ZRect& rect)
{
    GetImp ().FillRect (rect + origin);
    modified = true;
}

void ZCanvas::FramePolygon (std::span<ZPoint> points)
{
    const DevicePoints moved (points, origin);
    GetImp ().FramePolygon (points);
    modified = true;
}

void ZCanvas::FillPolygon (std::span<ZPoint> points)
{
    const DevicePoints moved (points, origin);
    GetImp ().FillPolygon (points);
    modified = true;
}

void ZCanvas::DrawPolyline (std::span<const ZPointF> points)
{
    GetImp ().DrawPolyline (points, origin);
    modified = true;
}

void ZCanvas::FillPolygon (std::span<const ZPointF> points)
{
    GetImp ().FillPolygon (points, origin);
    modified = true;
}

ZPointF ZCanvas::ToDevicePixel (ZPointF point) const
{
    const auto scale = GetScale ();
    const auto nearest = [scale] (double coordinate, std::int32_t shift)
    { return std::floor ((coordinate + shift) * scale + 0.5) / scale - shift; };
    return { nearest (point.x, origin.x), nearest (point.y, origin.y) };
}

void ZCanvas::SetFont (std::string_view name, std::int32_t pixels, std::int32_t style)
{
    GetImp ().SetFont (name, pixels, style);
    modified = true;
}

void ZCanvas::SetFontSize (std::int32_t index, std::int32_t style)
{
    GetImp ().SetFontSize (index, style);
    modified = true;
}

void ZCanvas::DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment)
{
    GetImp ().DrawText (text, rect + origin, alignment);
    modified = true;
}

void ZCanvas::CopyCanvas (const ZCanvas& source, const ZRect& rect, ZPoint from)
{
    if (source.IsTransparentEnabled ())
        CopyCanvasKeyed (source, rect, from, source.GetTransparentColor ());
    else
        CopyCanvasPlain (source, rect, from);
}

void ZCanvas::CopyCanvasPlain (const ZCanvas& source, const ZRect& rect, ZPoint from)
{
    if (rect.IsEmpty ())
        return;
    GetImp ().CopyCanvasPlain (source.GetImp (), rect + origin, from + source.origin);
    modified = true;
}

void ZCanvas::CopyCanvasKeyed (const ZCanvas& source, const ZRect& rect, ZPoint from, ZColor key)
{
    if (rect.IsEmpty ())
        return;
    GetImp ().CopyCanvasKeyed (source.GetImp (), rect + origin, from + source.origin, key);
    modified = true;
}

void ZCanvas::CopyCanvasAlpha (const ZCanvas& source, const ZRect& rect, ZPoint from, std::uint8_t alpha)
{
    if (rect.IsEmpty ())
        return;
    GetImp ().CopyCanvasAlpha (source.GetImp (), rect + origin, from + source.origin, alpha);
    modified = true;
}

void ZCanvas::StretchCanvas (const ZCanvas& source, const ZRect& rect, const ZRect& from)
{
    if (rect.IsEmpty () || from.IsEmpty ())
        return;
    GetImp ().StretchCanvas (source.GetImp (), rect + origin, from + source.origin);
    modified = true;
}

void ZCanvas::DrawBitmap (const ZBitmap& bitmap, const ZRect& rect, ZPoint from)
{
    if (bitmap.IsTransparent ())
        DrawBitmapKeyed (bitmap, rect, from, bitmap.GetTransparentColor ());
    else
        DrawBitmapPlain (bitmap, rect, from);
}

void ZCanvas::DrawBitmapPlain (const ZBitmap& bitmap, const ZRect& rect, ZPoint from)
{
    if (rect.IsEmpty ())
        return;
    GetImp ().DrawBitmapPlain (bitmap.GetImp (), rect + origin, from);
    modified = true;
}

void ZCanvas::DrawBitmapKeyed (const ZBitmap& bitmap, const ZRect& rect, ZPoint from, ZColor key)
{
    if (rect.IsEmpty ())
        return;
    GetImp ().DrawBitmapKeyed (bitmap.GetImp (), rect + origin, from, key);
    modified = true;
}

void ZCanvas::DrawBitmapAlpha (const ZBitmap& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha)
{
    if (rect.IsEmpty ())
        return;
    GetImp ().DrawBitmapAlpha (bitmap.GetImp (), rect + origin, from, alpha);
    modified = true;
}

void ZCanvas::StretchBitmap (const ZBitmap& bitmap, const ZRect& rect, const ZRect& from)
{
    if (rect.IsEmpty () || from.IsEmpty ())
        return;
    GetImp ().StretchBitmap (bitmap.GetImp (), rect + origin, from);
    modified = true;
}

ZOffscreenCanvas::ZOffscreenCanvas (const ZCanvas& parent, const ZRect& rect)
    : imp (parent.CreateOffscreenImp (rect + parent.GetOrigin ()))
{
    SetOrigin (ZPoint{} - rect.TopLeft ());
}

} // namespace tessaly
