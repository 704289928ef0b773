#pragma once

#include "win_gdiplus_canvas_imp.h"

namespace tessaly
{

/// Brings a canvas's clip into its graphics object for the length of one operation, and puts back what was there.
class ZWinGDIPlusCanvasImp::ClipGuard
{
public:
    explicit ClipGuard (ZWinGDIPlusCanvasImp& canvas)
        : graphics (canvas.GetGraphics ())
    {
        Gdiplus::GpRegion* region = nullptr;
        gdip::GdipCreateRegion (&region);
        saved.reset (region);
        gdip::GdipGetClip (graphics, region);
        if (canvas.nothingShows)
            gdip::GdipSetClipRectI (graphics, 0, 0, 0, 0, Gdiplus::CombineModeReplace);
        INT points = 0;
        gdip::GdipGetPointCount (canvas.clipPath.get (), &points);
        if (points != 0)
            gdip::GdipSetClipPath (graphics, canvas.clipPath.get (), Gdiplus::CombineModeReplace);
    }
    ~ClipGuard () { gdip::GdipSetClipRegion (graphics, saved.get (), Gdiplus::CombineModeReplace); }
    ClipGuard (const ClipGuard&) = delete;
    ClipGuard& operator= (const ClipGuard&) = delete;

    /// What is drawn lies in these pixels, too.
    void Intersect (const ZRect& pixels) const
    {
        gdip::GdipSetClipRectI (graphics, pixels.left, pixels.top, pixels.Width (), pixels.Height (),
                                Gdiplus::CombineModeIntersect);
    }

private:
    Gdiplus::GpGraphics* graphics; // not owned: the canvas's
    GdiplusObject<Gdiplus::GpRegion> saved;
};

} // namespace tessaly
