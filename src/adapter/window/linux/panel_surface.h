#pragma once

#include "cairo_canvas_imp.h"
#include "canvas.h"
#include "changed_area.h"
#include "vstgui/lib/cbitmap.h"
#include <cstdint>

namespace VSTGUI
{
class CDrawContext;
}

namespace tessaly
{

/// The panel's retained pixels, and the same pixels as an image of VSTGUI.
class PanelSurface
{
public:
    PanelSurface (std::int32_t width, std::int32_t height, double scale);

    ZCanvas& Canvas () { return canvas; }
    ZRect PixelSize () const { return imp.PixelSize (); }
    ChangedArea TakeChanges (); ///< what was drawn since it was last asked, in pixels

    void Blit (VSTGUI::CDrawContext& context) const; ///< within the context's clip

private:
    ZCairoCanvasImp imp;
    ZOnscreenCanvas canvas;
    ChangedArea changes;
    VSTGUI::SharedPointer<VSTGUI::CBitmap> picture;
};

} // namespace tessaly
