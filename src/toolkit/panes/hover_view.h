#pragma once

#include "offscreen_layer.h"
#include "view.h"

namespace tessaly
{

/// A view of two layers: the lower one changes slowly and is repainted only where dirty, the upper one is drawn anew on
/// every pass over a copy of the lower. So what floats above can move without a redraw of what lies under it.
///
/// Panes go into the two layers, which lie at (0, 0) in this view and always have its size. The lower layer is to cover
/// the view opaquely: a copy blends, so that old pixels would shine through its gaps. Each pass costs two copies of the
/// view's size and the drawing of the upper layer.
class ZHoverView : public ZView
{
public:
    ZHoverView (ZPaneOwner* paneOwner, const ZRect& rect);

    ZView& GetLowerView () { return lowerView; }
    ZView& GetUpperView () { return upperView; }
    void PrepareOffscreens (const ZCanvas& canvas, const ZRect& rect); ///< new pixels make the view dirty
    void DeleteOffscreens ();

    void SetFrame (const ZRect& rect) override;
    void Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update) override;
    void Draw (ZCanvas& canvas, std::uint32_t time) override;

private:
    bool KeepsPixelsFor (const ZCanvas& canvas); // false: to be drawn straight on the canvas
    void DrawUpper (ZCanvas& canvas, std::uint32_t time);

    ZView lowerView;
    ZView upperView;
    OffscreenLayer lowerLayer; // what lowerView drew
    OffscreenLayer upperLayer; // both layers together, as they appear
};

} // namespace tessaly
