#include "panel_surface.h"

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/linux/cairobitmap.h"
#include <cairo/cairo.h>
#include <utility>

namespace tessaly
{

using namespace VSTGUI;

PanelSurface::PanelSurface (std::int32_t width, std::int32_t height, double scale)
    : imp (width, height, scale)
    , canvas (imp)
{
    imp.TrackChanges (&changes);
    const Cairo::SurfaceHandle shared (cairo_surface_reference (imp.Surface ()));
    picture = makeOwned<CBitmap> (makeOwned<Cairo::Bitmap> (shared));
}

ChangedArea PanelSurface::TakeChanges ()
{
    return std::exchange (changes, {});
}

void PanelSurface::Blit (CDrawContext& context) const
{
    imp.Surface (); // all drawing done
    CRect clip;
    context.getClipRect (clip);
    context.clearRect (clip); // where the panel has no image yet, what was there before would show through
    const ZRect pixels = imp.PixelSize ();
    context.drawBitmap (picture, CRect (0, 0, pixels.right, pixels.bottom));
}

} // namespace tessaly
