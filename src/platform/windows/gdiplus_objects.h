#pragma once

#include "windows_api.h"
#include <memory>

namespace tessaly
{

// The flat functions of GDI+. Their status is never acted on: what can't be drawn is not drawn.
namespace gdip = Gdiplus::DllExports;

/// Keeps GDI+ running; every program and every view that draws holds one. They count: the first starts it, the last
/// ends it, after all objects of GDI+.
class GdiplusSession
{
public:
    GdiplusSession ();
    ~GdiplusSession ();
    GdiplusSession (const GdiplusSession&) = delete;
    GdiplusSession& operator= (const GdiplusSession&) = delete;

private:
    ULONG_PTR token = 0;
};

/// Deletes an object by the flat function for its kind.
struct GdiplusRelease
{
    void operator() (Gdiplus::GpPen* pen) const { gdip::GdipDeletePen (pen); }
    void operator() (Gdiplus::GpBrush* brush) const { gdip::GdipDeleteBrush (brush); }
    void operator() (Gdiplus::GpPath* path) const { gdip::GdipDeletePath (path); }
    void operator() (Gdiplus::GpRegion* region) const { gdip::GdipDeleteRegion (region); }
    void operator() (Gdiplus::GpGraphics* graphics) const { gdip::GdipDeleteGraphics (graphics); }
    void operator() (Gdiplus::GpImage* image) const { gdip::GdipDisposeImage (image); }
    void operator() (Gdiplus::GpFontFamily* family) const { gdip::GdipDeleteFontFamily (family); }
    void operator() (Gdiplus::GpFont* font) const { gdip::GdipDeleteFont (font); }
    void operator() (Gdiplus::GpStringFormat* format) const { gdip::GdipDeleteStringFormat (format); }
    void operator() (Gdiplus::GpImageAttributes* attributes) const { gdip::GdipDisposeImageAttributes (attributes); }
};

template <typename Object>
using GdiplusObject = std::unique_ptr<Object, GdiplusRelease>;

} // namespace tessaly
