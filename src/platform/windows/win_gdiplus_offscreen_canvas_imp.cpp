#include "win_gdiplus_offscreen_canvas_imp.h"

#include <algorithm>

namespace tessaly
{

ZWinGDIPlusOffscreenCanvasImp::ZWinGDIPlusOffscreenCanvasImp (const ZWinGDIPlusCanvasImp& parent, const ZRect& rect)
    : ZWinGDIPlusOffscreenCanvasImp (parent.Grid ().PartAt (rect.TopLeft ()), { rect.Width (), rect.Height () })
{
}

ZWinGDIPlusOffscreenCanvasImp::ZWinGDIPlusOffscreenCanvasImp (std::int32_t width, std::int32_t height, double scale)
    : ZWinGDIPlusOffscreenCanvasImp (PixelGrid (scale), { width, height })
{
}

ZWinGDIPlusOffscreenCanvasImp::ZWinGDIPlusOffscreenCanvasImp (const PixelGrid& pixelGrid, ZPoint coordinates)
    : ZWinGDIPlusCanvasImp (pixelGrid)
    , size (pixelGrid.Pixels ({ 0, 0, std::max (coordinates.x, 0), std::max (coordinates.y, 0) }))
{
    // Of an empty one there is no bitmap; one pixel that nothing reaches stands in for it
    Gdiplus::GpBitmap* newBitmap = nullptr;
    gdip::GdipCreateBitmapFromScan0 (std::max (size.right, 1), std::max (size.bottom, 1), 0, PixelFormat32bppPARGB,
                                     nullptr, &newBitmap);
    bitmap.reset (newBitmap);
    Gdiplus::GpGraphics* newGraphics = nullptr;
    gdip::GdipGetImageGraphicsContext (newBitmap, &newGraphics);
    graphics.reset (newGraphics);
    gdip::GdipGraphicsClear (newGraphics, 0);
}

} // namespace tessaly
