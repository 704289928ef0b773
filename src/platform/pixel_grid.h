#pragma once

#include "geometry.h"
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tessaly
{

/// Where coordinates of one axis land on a surface with more pixels than coordinates. For a surface of its own that is
///     pixel = floor (coordinate * scale + 0.5)
/// For the copy of a part of another surface, which begins at the coordinate `place` of it, it is the same pixel there,
/// counted from the first one of the part: the two fit together pixel by pixel at every scale.
class PixelAxis
{
public:
    explicit PixelAxis (double pixels, double firstCoordinate = 0.0)
        : scale (pixels)
        , place (std::clamp (firstCoordinate, -kFarthest / pixels, kFarthest / pixels))
        , first (Round (place))
    {
    }

    double Scale () const { return scale; }
    double Place () const { return place; }
    std::int32_t Edge (double coordinate) const { return Round (coordinate + place) - first; }
    double Exact (double coordinate) const { return (coordinate + place) * scale - first; } ///< not rounded
    double Coordinate (double pixel) const { return (pixel + first) / scale - place; }      ///< the way back

private:
    static constexpr double kFarthest = 1 << 21; // pixels; Cairo counts in 24 bits, a rectangle spans twice this

    std::int32_t Round (double coordinate) const
    {
        return static_cast<std::int32_t> (std::floor (std::clamp (coordinate * scale, -kFarthest, kFarthest) + 0.5));
    }

    double scale;       // pixels a coordinate
    double place;       // coordinate of the other surface
    std::int32_t first; // pixel of the other surface
};

/// Both axes. It is edges that are rounded, never widths: an edge lands at one place whichever of two neighbours asks,
/// so at 1.25 and 1.5 neither gap nor overlap comes between them. At least one pixel is left of a rectangle that isn't
/// empty.
class PixelGrid
{
public:
    static constexpr double kLeastScale = 1.0;
    static constexpr double kMostScale = 8.0;

    /// @param pixels  a coordinate; clamped, NaN counts as 1
    explicit PixelGrid (double pixels)
        : PixelGrid (std::isnan (pixels) ? kLeastScale : std::clamp (pixels, kLeastScale, kMostScale), 0.0, 0.0)
    {
    }

    /// The grid of a part that begins at `place` in this one's coordinates.
    PixelGrid PartAt (ZPoint place) const { return { Scale (), x.Place () + place.x, y.Place () + place.y }; }

    double Scale () const { return x.Scale (); }
    const PixelAxis& X () const { return x; }
    const PixelAxis& Y () const { return y; }
    ZRect Pixels (const ZRect& rect) const
    {
        return { x.Edge (rect.left), y.Edge (rect.top), x.Edge (rect.right), y.Edge (rect.bottom) };
    }

private:
    PixelGrid (double pixels, double left, double top)
        : x (pixels, left)
        , y (pixels, top)
    {
    }

    PixelAxis x;
    PixelAxis y;
};

} // namespace tessaly
