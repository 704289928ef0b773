#include "offscreen_layer.h"

namespace tessaly
{

bool OffscreenLayer::Prepare (const ZCanvas& target, const ZRect& wanted)
{
    const auto density = target.GetScale ();
    if (wanted != rect || target.GetOrigin () != origin || density != scale)
        Delete ();
    if (canvas != nullptr || wanted.IsEmpty ())
        return false;
    canvas = std::make_unique<ZOffscreenCanvas> (target, wanted);
    rect = wanted;
    origin = target.GetOrigin ();
    scale = density;
    return true;
}

void OffscreenLayer::Delete ()
{
    canvas.reset ();
    rect = {};
    origin = {};
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
