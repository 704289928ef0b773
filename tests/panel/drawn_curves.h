#pragma once

#include "geometry.h"
#include "recording_canvas.h"
#include <utility>
#include <vector>

namespace tessaly
{

/// A polyline that was drawn, in coordinates.
struct DrawnCurve
{
    ZColor color;
    std::vector<ZPointF> points;
};

/// The polylines in a log of drawing calls; a change of colour comes between two of them.
inline std::vector<DrawnCurve> CurvesIn (const RecordingCanvasImp::Log& log)
{
    std::vector<DrawnCurve> curves;
    ZColor color;
    bool goesOn = false;
    for (const auto& call : log)
    {
        if (call.operation == "SetColor")
        {
            color = call.color;
            goesOn = false;
        }
        if (call.operation != "DrawPolyline")
            continue;
        if (!std::exchange (goesOn, true))
            curves.push_back ({ color, {} });
        curves.back ().points.push_back (call.point);
    }
    return curves;
}

} // namespace tessaly
