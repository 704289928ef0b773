#pragma once

#include "bitmap_imp.h"
#include "cairo_copy.h"
#include <memory>

namespace tessaly
{

/// Pixels that a copy reads, and what keeps them there until it is done.
struct ImagePart
{
    CopySource source;
    std::shared_ptr<cairo_surface_t> kept; // null where the image itself keeps them
};

/// An image that a ZCairoCanvasImp can draw.
class ZCairoImage : public ZBitmapImp
{
public:
    /// At least those pixels of the area that the image has; without any, a source without a surface.
    virtual ImagePart Part (const ZRect& area) = 0;
    /// The same, without the opaque pixels of this colour.
    virtual ImagePart PartWithoutKey (const ZRect& area, ZColor key) = 0;
};

} // namespace tessaly
