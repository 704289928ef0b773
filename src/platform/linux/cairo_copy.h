#pragma once

#include "cairo_handles.h"
#include "geometry.h"
#include "pixel_grid.h"
#include <cstdint>
#include <optional>

namespace tessaly
{

/// Pixels to copy from: an image surface of 32 bits with alpha, premultiplied.
struct CopySource
{
    cairo_surface_t* surface = nullptr; // not owned: the imp that is copied from
    PixelGrid grid;                     // from its coordinates to its pixels
    std::int32_t width = 0;             // in its coordinates
    std::int32_t height = 0;
    ZPoint place{}; // of its top left in the coordinates of `from`: not (0, 0) where it is a part of an image
};

/// How a copy is blended. A pixel that is the opaque colour `key` is left out.
struct CopyBlend
{
    double alpha = 1.0; // 0 to 1, multiplies the source's own
    std::optional<ZColor> key;
};

/// Copies the area `from` of the source to `rect`, stretched to it. What lies outside the source draws nothing.
///
/// The rectangle covers whole pixels of the target. With as many pixels in the source as in the target, pixel goes to
/// pixel. Otherwise pixels are mixed: two by two when it grows, all that fall on one when it shrinks. The mixture never
/// reaches beyond `from`: there the source's last pixel goes on, so that no frame of a strip shows in its neighbour.
/// Where a pixel of the target falls in the source depends on the coordinates and not on the rounded rectangle: parts
/// of one picture that are copied apart fit together.
void CopyArea (cairo_t* target, const PixelGrid& grid, const ZRect& rect, const CopySource& source, const ZRect& from,
               const CopyBlend& blend);

/// A copy of these pixels in which those of the opaque colour `key` are transparent. Null when there is none of them.
CairoSurface WithoutKey (cairo_surface_t* pixels, ZColor key);

} // namespace tessaly
