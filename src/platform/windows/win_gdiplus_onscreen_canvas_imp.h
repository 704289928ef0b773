#pragma once

#include "win_gdiplus_canvas_imp.h"

namespace tessaly
{

/// A window's surface for one paint pass: it is drawn in memory, black at first, and each copy of a canvas or a bitmap
/// brings its rectangle to the window. A shape comes there with the next copy over it.
class ZWinGDIPlusOnscreenCanvasImp final : public ZWinGDIPlusCanvasImp
{
public:
    /// @param onWindow  not owned: outlives this
    /// @param scale     pixels a coordinate
    explicit ZWinGDIPlusOnscreenCanvasImp (HWND onWindow, double scale = 1.0);
    ~ZWinGDIPlusOnscreenCanvasImp () override;

    Gdiplus::GpGraphics* GetGraphics () const override { return graphics; }
    Gdiplus::GpImage* GetImage () const override { return nullptr; }

    void CopyCanvasPlain (ZCanvasImp& source, const ZRect& rect, ZPoint from) override;
    void CopyCanvasKeyed (ZCanvasImp& source, const ZRect& rect, ZPoint from, ZColor key) override;
    void CopyCanvasAlpha (ZCanvasImp& source, const ZRect& rect, ZPoint from, std::uint8_t alpha) override;
    void DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from) override;
    void DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor key) override;
    void DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha) override;

private:
    void ShowOnWindow (const ZRect& rect);

    Gdiplus::GpGraphics* graphics = nullptr; // owned; deleted between the other objects, in their order
    HWND window;
    HDC windowDC;
    HDC memoryDC;
    HGDIOBJ oldPen = nullptr; // selected out of the memory DC, and back in the end
    HGDIOBJ oldBrush = nullptr;
    HGDIOBJ oldFont = nullptr;
    HGDIOBJ oldBitmap = nullptr;
};

} // namespace tessaly
