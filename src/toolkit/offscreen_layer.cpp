#include "offscreen_layer.h"

namespace tessaly
{

bool OffscreenLayer::Prepare (const ZCanvas& target, const ZRect& wanted)
{
    const auto density = target.GetScale ();
    if (wanted != rect || density != scale)
        Delete ();
    if (canvas != nullptr || wanted.IsEmpty ())
        return false;
    canvas = std::make_unique<ZOffscreenCanvas> (target, wanted);
    rect = wanted;
    scale = density;
    return true;
}

void OffscreenLayer::Delete ()
{
    canvas.reset ();
    rect = {};
    scale = 0.0;
}

void OffscreenLayer::CopyTo (ZCanvas& target) const
{
    if (canvas == nullptr)
        return;
    const ZCanvasStateSt state (target);
    target.SetClipRect (rect);
    target.CopyCanvas (*canvas, rect, rect.TopLeft ());
}

} // namespace tessaly
