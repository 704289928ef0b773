#pragma once

#include "win_gdiplus_canvas_imp.h"

namespace tessaly
{

/// A surface in memory, transparent at first: 32 bits with premultiplied alpha.
class ZWinGDIPlusOffscreenCanvasImp : public ZWinGDIPlusCanvasImp
{
public:
    /// Of the rectangle's size and the parent's density, parted into pixels as the parent is there.
    ZWinGDIPlusOffscreenCanvasImp (const ZWinGDIPlusCanvasImp& parent, const ZRect& rect);
    /// One that no window stands behind: scale * width by scale * height pixels, rounded.
    ZWinGDIPlusOffscreenCanvasImp (std::int32_t width, std::int32_t height, double scale);

    Gdiplus::GpGraphics* GetGraphics () const override { return graphics.get (); }
    Gdiplus::GpImage* GetImage () const override { return bitmap.get (); }
    ZRect PixelSize () const { return size; } ///< from (0, 0)

private:
    ZWinGDIPlusOffscreenCanvasImp (const PixelGrid& pixelGrid, ZPoint coordinates);

    ZRect size; // pixels
    GdiplusObject<Gdiplus::GpBitmap> bitmap;
    GdiplusObject<Gdiplus::GpGraphics> graphics; // goes first
};

} // namespace tessaly
