#pragma once

#include "offscreen_layer.h"
#include "view.h"

namespace tessaly
{

/// A view that keeps its pixels: children draw into an offscreen canvas, dirty ones only, and every paint pass copies
/// the whole of it, changed or not. The copy is the price of a pass, which starts only when something is dirty.
class ZOffscreenView : public ZView
{
public:
    using ZView::ZView;

    void PrepareOffscreen (const ZCanvas& canvas, const ZRect& rect); ///< new pixels make the view dirty
    void DeleteOffscreen () { layer.Delete (); }

    void Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update) override;
    void Draw (ZCanvas& canvas, std::uint32_t time) override;

private:
    bool KeepsPixelsFor (const ZCanvas& canvas); // false: to be drawn straight on the canvas

    OffscreenLayer layer;
};

} // namespace tessaly
