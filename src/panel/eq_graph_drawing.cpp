#include "canvas.h"
#include "channel_strip.h"
#include "eq_graph.h"
#include "plot_columns.h"

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

/// The sum adds up the bands' responses in dB, in the engine's order, so it takes no evaluation of its own.
ZAMX_EqGraph::Curves ZAMX_EqGraph::FindCurves (const ZCanvas& canvas) const
{
    const PlotColumns columns (scale.Plot (), canvas.GetScale ());
    Curves curves;
    for (auto& curve : curves)
        curve.reserve (static_cast<std::size_t> (columns.Count ()) + 2); // the area has two corners more
    for (std::int32_t i = 0; i < columns.Count (); ++i)
    {
        const auto x = columns.X (i);
        const auto frequency = scale.XToFreqExact (x);
        const auto add = [&] (std::int32_t band, double gainDb)
        {
            const ZPointF point{ x, scale.GainToYExact (gainDb) };
            curves[static_cast<std::size_t> (band)].push_back (canvas.ToDevicePixel (point));
        };
        double sum = 0.0;
        for (const std::int32_t band : { kLowBand, kMidBand, kHighBand })
        {
            const auto gainDb = strip->eqResponseDb (frequency, static_cast<std::int16_t> (band));
            sum += gainDb;
            add (band, gainDb);
        }
        add (kAllBands, sum);
    }
    return curves;
}

void ZAMX_EqGraph::DrawCurves (ZCanvas& canvas) const
{
    const auto curves = FindCurves (canvas);
    const ZCanvasStateSt state (canvas);
    canvas.SetClipRect (scale.Plot ());
    FillArea (canvas, curves[kAllBands]);
    std::int32_t onTop = kNoBand;
    for (const std::int32_t band : { kHighBand, kMidBand, kLowBand, kAllBands })
    {
        if (band == currentBand || band == hoverBand)
            onTop = band;
        else
            DrawLine (canvas, curves, band);
    }
    if (onTop != kNoBand)
        DrawLine (canvas, curves, onTop);
}

void ZAMX_EqGraph::FillArea (ZCanvas& canvas, Curve outline) const
{
    const auto& style = styles[kAllBands];
    const double base = scale.GainToY (0.0);
    outline.insert (outline.begin (), { scale.Plot ().left - 1.0, base });
    outline.push_back ({ scale.Plot ().right + 1.0, base });
    canvas.SetColor (style.bright, style.alpha);
    canvas.SetLineWidth (style.width);
    canvas.FillPolygon (outline);
}

void ZAMX_EqGraph::DrawLine (ZCanvas& canvas, const Curves& curves, std::int32_t band) const
{
    canvas.SetColor (GetCurveColor (band), 255);
    canvas.SetLineWidth (styles[static_cast<std::size_t> (band)].width);
    canvas.DrawPolyline (curves[static_cast<std::size_t> (band)]);
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
