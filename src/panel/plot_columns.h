#pragma once

#include "geometry.h"
#include "truncate.h"
#include <cmath>
#include <cstdint>

namespace tessaly
{

/// The columns of a plot in which a curve has its points: one for each column of the surface's pixels, so that a curve
/// is as smooth as the screen is dense. At scale 1 they are the plot's coordinates.
class PlotColumns
{
public:
    PlotColumns (const ZRect& plot, double pixelsPerCoordinate)
        : left (plot.left)
        , scale (pixelsPerCoordinate)
        , count (Truncate (std::ceil (plot.Width () * pixelsPerCoordinate)))
    {
    }

    std::int32_t Count () const { return count; }
    double X (std::int32_t column) const { return left + column / scale; } ///< a coordinate

private:
    std::int32_t left;
    double scale;
    std::int32_t count;
};

} // namespace tessaly
