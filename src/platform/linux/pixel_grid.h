#pragma once

#include "geometry.h"
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tessaly
{

/// Where coordinates land on a surface with more pixels than coordinates: pixel = floor (coordinate * scale + 0.5).
/// It is edges that are rounded, never widths: an edge lands at one place whichever of two neighbours asks, so at 1.25
/// and 1.5 neither gap nor overlap comes between them. At least one pixel is left of a rectangle that isn't empty.
class PixelGrid
{
public:
    static constexpr double kLeastScale = 1.0;
    static constexpr double kMostScale = 8.0;
    static constexpr double kFarthest = 1 << 21; // pixels; Cairo counts in 24 bits, a rectangle spans twice this

    /// @param pixels  a coordinate; clamped, no number counts as 1
    explicit PixelGrid (double pixels)
        : scale (std::isnan (pixels) ? 1.0 : std::clamp (pixels, kLeastScale, kMostScale))
    {
    }

    double Scale () const { return scale; }
    std::int32_t Edge (double coordinate) const
    {
        return static_cast<std::int32_t> (std::floor (std::clamp (coordinate * scale, -kFarthest, kFarthest) + 0.5));
    }
    ZRect Pixels (const ZRect& rect) const
    {
        return { Edge (rect.left), Edge (rect.top), Edge (rect.right), Edge (rect.bottom) };
    }

private:
    double scale;
};

} // namespace tessaly
