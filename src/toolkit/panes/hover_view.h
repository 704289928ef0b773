#pragma once

#include "offscreen_layer.h"
#include "view.h"

namespace tessaly
{

/// A view of two layers: the lower one changes slowly and is repainted only where dirty, the upper one is drawn anew on
/// every pass over a copy of the lower. So what floats above can move without a redraw of what lies under it.
///
/// Panes go into the two layers, which lie at (0, 0) in this view and always have its size. The lower layer is to cover
/// the view opaquely: a copy blends, so that old pixels would shine through its gaps.
///
/// The lower layer's pixels are kept apart only while something is visible in the upper one: such a pass costs a copy of
/// the view's size and the drawing of the upper layer. At rest the view is painted like any other and holds no pixels.
/// The target is to keep its pixels from pass to pass and to be shown after the pass, not during it.
class ZHoverView : public ZView
{
public:
    ZHoverView (ZPaneOwner* paneOwner, const ZRect& rect);

    ZView& GetLowerView () { return lowerView; }
    ZView& GetUpperView () { return upperView; }

    void SetFrame (const ZRect& rect) override;
    void Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update) override;
    void Draw (ZCanvas& canvas, std::uint32_t time) override;

private:
    void DrawLayers (ZCanvas& canvas, std::uint32_t time, bool whole);

    ZView lowerView;
    ZView upperView;
    OffscreenLayer lowerLayer; // what lowerView drew; without pixels while nothing floats
};

} // namespace tessaly
