#include "comp_graph.h"

#include "canvas.h"
#include "channel_strip.h"
#include "channel_strip_parameters.h"
#include "plot_columns.h"
#include "truncate.h"
#include <vector>

namespace tessaly
{

namespace
{

constexpr double kSpanDb = 60.0; // of both axes, ending at 0 dB

bool ShapesCurve (std::int32_t id)
{
    return id == IndexOf (StripParameter::drive) ||
           (id >= IndexOf (StripParameter::ratio) && id <= IndexOf (StripParameter::makeupAmount));
}

} // namespace

ZAMX_CompGraph::ZAMX_CompGraph (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZControl (paneOwner, rect, controlId)
    , plotRect (rect)
{
    SetMouseEnabled (false);
}

void ZAMX_CompGraph::SetBackgrounds (ZBitmap* whileActive, ZBitmap* whileInactive)
{
    activeBack = whileActive;
    inactiveBack = whileInactive;
}

void ZAMX_CompGraph::SetColors (ZColor whileActive, ZColor whileInactive)
{
    activeColor = whileActive;
    inactiveColor = whileInactive;
}

void ZAMX_CompGraph::SetValueById (std::int32_t controlId, float newValue)
{
    ZControl::SetValueById (controlId, newValue);
    if (ShapesCurve (controlId))
        SetDirty (true);
}

// Axes

double ZAMX_CompGraph::XOf (double db) const
{
    return (plotRect.Width () - 1) * (db + kSpanDb) / kSpanDb;
}

double ZAMX_CompGraph::YOf (double db) const
{
    return (plotRect.Height () - 1) * (1.0 - (db + kSpanDb) / kSpanDb);
}

std::int32_t ZAMX_CompGraph::DbToX (double db) const
{
    return Truncate (XOf (db) + 0.5);
}

std::int32_t ZAMX_CompGraph::DbToY (double db) const
{
    return Truncate (YOf (db) + 0.5);
}

double ZAMX_CompGraph::XToDb (double x) const
{
    return x * kSpanDb / (plotRect.Width () - 1) - kSpanDb;
}

double ZAMX_CompGraph::PixelToDb (double y) const
{
    return -kSpanDb - (y * kSpanDb / (plotRect.Height () - 1) - kSpanDb);
}

// Drawing

void ZAMX_CompGraph::DrawActive (ZCanvas& canvas, std::uint32_t time)
{
    DrawLook (canvas, time, activeBack, activeColor);
}

void ZAMX_CompGraph::DrawInactive (ZCanvas& canvas, std::uint32_t time)
{
    DrawLook (canvas, time, inactiveBack, inactiveColor);
}

void ZAMX_CompGraph::DrawLook (ZCanvas& canvas, std::uint32_t time, const ZBitmap* back, ZColor color) const
{
    if (back != nullptr)
        canvas.DrawBitmap (*back, GetFrame (), {});
    canvas.SetColor (color, 255);
    DrawCurve (canvas, time);
}

void ZAMX_CompGraph::DrawCurve (ZCanvas& canvas, std::uint32_t /*time*/) const
{
    if (strip == nullptr)
        return;
    const PlotColumns columns (plotRect, canvas.GetScale ());
    std::vector<ZPointF> points;
    points.reserve (static_cast<std::size_t> (columns.Count ()));
    for (std::int32_t i = 0; i < columns.Count (); ++i)
    {
        const auto x = columns.X (i);
        const auto outputDb = strip->compressorCurveDb (XToDb (x - plotRect.left));
        points.push_back (canvas.ToDevicePixel ({ x, plotRect.top + YOf (outputDb) }));
    }
    const ZCanvasStateSt state (canvas);
    canvas.SetLineWidth (lineWidth);
    canvas.SetClipRect (plotRect);
    canvas.DrawPolyline (points);
}

} // namespace tessaly
