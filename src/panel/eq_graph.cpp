#include "eq_graph.h"

#include "channel_strip.h"
#include "event.h"
#include "number_text.h"
#include "pane_owner.h"
#include "panel_ids.h"
#include "panel_state.h"
#include "parameter_storage_base.h"

namespace tessaly
{

void ZAMX_EqGraph::SetPlotRect (const ZRect& rect)
{
    scale.SetPlot (rect);
}

void ZAMX_EqGraph::SetBackgrounds (ZBitmap* whileActive, ZBitmap* whileInactive)
{
    activeBack = whileActive;
    inactiveBack = whileInactive;
}

void ZAMX_EqGraph::SetCurveStyle (std::int32_t index, std::int32_t width, ZColor normal, ZColor bright, ZColor disabled,
                                  std::uint8_t alpha)
{
    if (index >= kAllBands && index <= kHighBand)
        styles[static_cast<std::size_t> (index)] = { normal, bright, disabled, alpha, width };
}

void ZAMX_EqGraph::SetMarkerSource (const ZRect& rect, std::int32_t disabledFrame)
{
    markerSource = rect;
    disabledMarker = disabledFrame;
}

void ZAMX_EqGraph::SetMarkers (ZBitmap* low, ZBitmap* mid, ZBitmap* high)
{
    markers = { low, mid, high };
}

void ZAMX_EqGraph::SetValueById (std::int32_t controlId, float newValue)
{
    ZControl::SetValueById (controlId, newValue);
    if (BandOf (controlId) != kNoBand)
        SetDirty (true);
}

// Bands

void ZAMX_EqGraph::SetCurrentBand (std::int32_t band)
{
    if (band == currentBand)
        return;
    currentBand = band;
    SetDirty (true);
}

ZColor ZAMX_EqGraph::GetCurveColor (std::int32_t band) const
{
    const auto& style = styles[static_cast<std::size_t> (band)];
    if (!IsActive ())
        return style.disabled;
    return IsCurrentBand (band) || IsHoverBand (band) ? style.bright : style.normal;
}

ZRect ZAMX_EqGraph::GetMarkerRect (std::int32_t band) const
{
    if (strip == nullptr || band < kLowBand || band > kHighBand)
        return {};
    const auto index = static_cast<std::int16_t> (band);
    const ZPoint middle{ scale.FreqToX (strip->bandFrequency (index)), scale.GainToY (strip->bandGain (index)) };
    const ZPoint half{ markerSource.Width () / 2, markerSource.Height () / 2 };
    return markerSource - markerSource.TopLeft () + (middle - half);
}

std::int32_t ZAMX_EqGraph::FindMarker (ZPoint point) const
{
    constexpr std::int32_t kMargin = 2; // pixels around a marker in which it is hit, too
    for (const std::int32_t band : { kHighBand, kMidBand, kLowBand })
    {
        const auto rect = GetMarkerRect (band);
        const ZRect target{ rect.left - kMargin, rect.top - kMargin, rect.right + kMargin, rect.bottom + kMargin };
        if (!rect.IsEmpty () && target.Contains (point))
            return band;
    }
    return kNoBand;
}

double ZAMX_EqGraph::PixelToGain (std::int32_t parameterId, double y) const
{
    constexpr int kPrecision = 6; // digits, as a gain that is typed
    float gainDb = 0.0f;
    GetStorage ()->TextToPlain (parameterId, FixedText (scale.PixelToGainExact (y), 0, kPrecision).c_str (), &gainDb);
    return gainDb;
}

// What is under the pointer

void ZAMX_EqGraph::SetHover (ZEvent& event, bool hand, std::int32_t band)
{
    if (hand != handCursor)
    {
        handCursor = hand;
        event.SetCursor (hand ? kHandCursor : kDefaultCursor);
    }
    if (band != hoverBand)
    {
        hoverBand = band;
        SetDirty (true);
    }
}

bool ZAMX_EqGraph::IsBlocked () const
{
    const auto* panel = dynamic_cast<const PanelState*> (GetOwner ());
    if (panel == nullptr)
        return true;
    const auto* captured = GetOwner ()->GetCapturePane ();
    return captured != nullptr ? captured != this : !panel->AllGuidesIdle ();
}

void ZAMX_EqGraph::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsMouseEnabled ())
    {
        if (handCursor)
            SetHover (event, false, kNoBand);
        return;
    }
    if (mouseEditing)
        return;
    if (IsBlocked ())
    {
        SetHover (event, false, kNoBand);
        return;
    }
    const auto band = FindMarker (mouse.point);
    SetHover (event, band != kNoBand, band);
    if (band == kNoBand && dragMode != kUndecided) // the pointer has left what the wheel had lit
    {
        dragMode = kUndecided;
        BroadcastMessage (kEditingEnded, this);
    }
}

} // namespace tessaly
