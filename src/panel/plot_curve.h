#pragma once

#include "geometry.h"
#include <cstdint>
#include <vector>

namespace tessaly
{

class ZCanvas;

/// The columns in which a curve is drawn over a plot: one for each column of the surface's pixels. Points between whole
/// coordinates let a curve be as smooth as the screen is dense; at scale 1 every point is whole.
class PlotColumns
{
public:
    PlotColumns (const ZRect& plot, double pixelsPerCoordinate);

    std::int32_t Count () const { return count; }
    double X (std::int32_t column) const { return left + column / scale; } ///< coordinate of a column
    double Row (double y) const;                                           ///< the nearest row of pixels, a coordinate

    friend bool operator== (const PlotColumns&, const PlotColumns&) = default;

private:
    std::int32_t left;
    double scale;
    std::int32_t count;
};

/// A polyline in the canvas's colour and line width.
void StrokeCurve (ZCanvas& canvas, const std::vector<ZPoint>& points);

} // namespace tessaly
