#pragma once

#include "geometry.h"
#include "recording_canvas.h"
#include <sstream>
#include <string>
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
        std::istringstream words (call);
        std::string name;
        words >> name;
        if (name == "SetColor")
        {
            int red = 0, green = 0, blue = 0;
            char comma = 0;
            words >> red >> comma >> green >> comma >> blue;
            color = { static_cast<std::uint8_t> (red), static_cast<std::uint8_t> (green),
                      static_cast<std::uint8_t> (blue) };
            goesOn = false;
        }
        if (name != "DrawPolyline")
            continue;
        if (!std::exchange (goesOn, true))
            curves.push_back ({ color, {} });
        auto& point = curves.back ().points.emplace_back ();
        words >> point.x >> point.y;
    }
    return curves;
}

} // namespace tessaly
