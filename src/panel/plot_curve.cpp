#include "plot_curve.h"

#include "canvas.h"
#include "truncate.h"
#include <cmath>

namespace tessaly
{

PlotColumns::PlotColumns (const ZRect& plot, double pixelsPerCoordinate)
    : left (plot.left)
    , scale (pixelsPerCoordinate)
    , count (Truncate (std::ceil (plot.Width () * pixelsPerCoordinate)))
{
}

double PlotColumns::Row (double y) const
{
    return std::round (y * scale) / scale;
}

void StrokeCurve (ZCanvas& canvas, const std::vector<ZPoint>& points)
{
    for (const auto& point : points)
    {
        if (&point == &points.front ())
            canvas.MoveTo (point);
        else
            canvas.LineTo (point);
    }
}

} // namespace tessaly
