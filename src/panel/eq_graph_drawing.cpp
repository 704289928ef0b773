#include "canvas.h"
#include "channel_strip.h"
#include "eq_graph.h"
#include "plot_curve.h"
#include "truncate.h"

namespace tessaly
{

void ZAMX_EqGraph::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    DrawLook (canvas, activeBack);
}

void ZAMX_EqGraph::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    DrawLook (canvas, inactiveBack);
}

void ZAMX_EqGraph::DrawLook (ZCanvas& canvas, const ZBitmap* back) const
{
    if (back != nullptr)
        canvas.DrawBitmap (*back, GetFrame (), {});
    if (strip == nullptr)
        return;
    DrawCurves (canvas);
    DrawMarkers (canvas);
}

/// The sum is that of the bands' responses in dB, in the engine's order, so it takes no third of its own.
ZAMX_EqGraph::Rows ZAMX_EqGraph::FindRows (const PlotColumns& columns) const
{
    Rows rows;
    for (auto& row : rows)
        row.reserve (static_cast<std::size_t> (columns.Count ()));
    for (std::int32_t i = 0; i < columns.Count (); ++i)
    {
        const auto frequency = scale.XToFreqExact (columns.X (i));
        double sum = 0.0;
        for (const std::int32_t band : { kLowBand, kMidBand, kHighBand })
        {
            const auto gainDb = strip->eqResponseDb (frequency, static_cast<std::int16_t> (band));
            sum += gainDb;
            rows[static_cast<std::size_t> (band)].push_back (columns.Row (scale.GainToYExact (gainDb)));
        }
        rows[kAllBands].push_back (columns.Row (scale.GainToYExact (sum)));
    }
    return rows;
}

void ZAMX_EqGraph::DrawCurves (ZCanvas& canvas) const
{
    const PlotColumns columns (scale.Plot (), 1.0);
    const auto rows = FindRows (columns);
    const ZCanvasStateSt state (canvas);
    canvas.SetClipRect (scale.Plot ());
    FillSum (canvas, columns, rows);
    std::int32_t onTop = kNoBand;
    for (const std::int32_t band : { kHighBand, kMidBand, kLowBand, kAllBands })
    {
        if (band == currentBand || band == hoverBand)
            onTop = band;
        else
            DrawLine (canvas, columns, rows, band);
    }
    if (onTop != kNoBand)
        DrawLine (canvas, columns, rows, onTop);
}

void ZAMX_EqGraph::FillSum (ZCanvas& canvas, const PlotColumns& columns, const Rows& rows) const
{
    const auto& style = styles[kAllBands];
    const auto base = scale.GainToY (0.0);
    std::vector<ZPoint> points;
    points.reserve (rows[kAllBands].size () + 2);
    points.push_back ({ scale.Plot ().left - 1, base });
    for (std::int32_t i = 0; i < columns.Count (); ++i)
        points.push_back ({ Truncate (columns.X (i)), Truncate (rows[kAllBands][static_cast<std::size_t> (i)]) });
    points.push_back ({ scale.Plot ().right + 1, base });
    canvas.SetColor (style.bright, style.alpha);
    canvas.SetLineWidth (style.width);
    canvas.FillPolygon (points);
}

void ZAMX_EqGraph::DrawLine (ZCanvas& canvas, const PlotColumns& columns, const Rows& rows, std::int32_t band) const
{
    const auto curve = static_cast<std::size_t> (band);
    std::vector<ZPoint> points;
    points.reserve (rows[curve].size ());
    for (std::int32_t i = 0; i < columns.Count (); ++i)
        points.push_back ({ Truncate (columns.X (i)), Truncate (rows[curve][static_cast<std::size_t> (i)]) });
    canvas.SetColor (GetCurveColor (band), 255);
    canvas.SetLineWidth (styles[curve].width);
    StrokeCurve (canvas, points);
}

void ZAMX_EqGraph::DrawMarkers (ZCanvas& canvas) const
{
    for (const std::int32_t band : { kLowBand, kMidBand, kHighBand })
    {
        const auto* image = markers[static_cast<std::size_t> (band - kLowBand)];
        if (image == nullptr)
            continue;
        const auto look = !IsActive () ? disabledMarker : IsCurrentBand (band) ? 1 : 0;
        const ZPoint from = markerSource.TopLeft () + ZPoint{ 0, look * markerSource.Height () };
        canvas.DrawBitmap (*image, GetMarkerRect (band), from);
    }
}

} // namespace tessaly
