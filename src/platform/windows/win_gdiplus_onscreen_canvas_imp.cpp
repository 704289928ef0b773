#include "win_gdiplus_onscreen_canvas_imp.h"

namespace tessaly
{

namespace
{

/// Of a window without borders, as GetWindowDC has it, but a text field that lies on it stays.
constexpr DWORD kWindow = DCX_CACHE | DCX_CLIPSIBLINGS | DCX_CLIPCHILDREN;

HFONT CreateArial ()
{
    return CreateFontW (0, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                        CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"Arial");
}

} // namespace

ZWinGDIPlusOnscreenCanvasImp::ZWinGDIPlusOnscreenCanvasImp (HWND onWindow, double scale)
    : ZWinGDIPlusCanvasImp (PixelGrid (scale))
    , window (onWindow)
    , windowDC (GetDCEx (onWindow, nullptr, kWindow))
    , memoryDC (CreateCompatibleDC (windowDC))
{
    SelectClipRgn (memoryDC, nullptr);
    RECT size{};
    GetWindowRect (window, &size);
    oldPen = SelectObject (memoryDC, CreatePen (PS_NULL, 0, 0));
    oldBrush = SelectObject (memoryDC, CreateSolidBrush (RGB (0, 0, 0)));
    oldFont = SelectObject (memoryDC, CreateArial ());
    oldBitmap =
        SelectObject (memoryDC, CreateCompatibleBitmap (windowDC, size.right - size.left, size.bottom - size.top));
    gdip::GdipCreateFromHDC (memoryDC, &graphics);
}

ZWinGDIPlusOnscreenCanvasImp::~ZWinGDIPlusOnscreenCanvasImp ()
{
    for (HGDIOBJ old : { oldBitmap, oldFont, oldBrush, oldPen })
        DeleteObject (SelectObject (memoryDC, old));
    gdip::GdipDeleteGraphics (graphics);
    DeleteDC (memoryDC);
    ReleaseDC (window, windowDC);
}

void ZWinGDIPlusOnscreenCanvasImp::ShowOnWindow (const ZRect& rect)
{
    const ZRect pixels = Grid ().Pixels (rect);
    BitBlt (windowDC, pixels.left, pixels.top, pixels.Width (), pixels.Height (), memoryDC, pixels.left, pixels.top,
            SRCCOPY);
}

void ZWinGDIPlusOnscreenCanvasImp::CopyCanvasPlain (ZCanvasImp& source, const ZRect& rect, ZPoint from)
{
    ZWinGDIPlusCanvasImp::CopyCanvasPlain (source, rect, from);
    ShowOnWindow (rect);
}

void ZWinGDIPlusOnscreenCanvasImp::CopyCanvasKeyed (ZCanvasImp& source, const ZRect& rect, ZPoint from, ZColor key)
{
    ZWinGDIPlusCanvasImp::CopyCanvasKeyed (source, rect, from, key);
    ShowOnWindow (rect);
}

void ZWinGDIPlusOnscreenCanvasImp::CopyCanvasAlpha (ZCanvasImp& source, const ZRect& rect, ZPoint from,
                                                    std::uint8_t alpha)
{
    ZWinGDIPlusCanvasImp::CopyCanvasAlpha (source, rect, from, alpha);
    ShowOnWindow (rect);
}

void ZWinGDIPlusOnscreenCanvasImp::DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from)
{
    ZWinGDIPlusCanvasImp::DrawBitmapPlain (bitmap, rect, from);
    ShowOnWindow (rect);
}

void ZWinGDIPlusOnscreenCanvasImp::DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor key)
{
    ZWinGDIPlusCanvasImp::DrawBitmapKeyed (bitmap, rect, from, key);
    ShowOnWindow (rect);
}

void ZWinGDIPlusOnscreenCanvasImp::DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from,
                                                    std::uint8_t alpha)
{
    ZWinGDIPlusCanvasImp::DrawBitmapAlpha (bitmap, rect, from, alpha);
    ShowOnWindow (rect);
}

} // namespace tessaly
