#include "channel_strip.h"
#include "eq_graph.h"
#include "panel_ids.h"
#include "parameter_storage_base.h"
#include "value_scales.h"
#include <algorithm>
#include <cstdlib>

namespace tessaly
{

namespace
{

/// @return 0 for a key that steps nothing
std::int32_t StepsOf (std::int32_t key)
{
    constexpr std::int32_t kPage = 10;
    switch (key)
    {
    case kKeyUp:
    case kKeyRight:
        return 1;
    case kKeyDown:
    case kKeyLeft:
        return -1;
    case kKeyPageUp:
        return kPage;
    case kKeyPageDown:
        return -kPage;
    default:
        return 0;
    }
}

} // namespace

// Values

void ZAMX_EqGraph::BroadcastStep (std::int32_t parameterId, double plain)
{
    const auto normalized = GetStorage ()->PlainToNormalized (parameterId, static_cast<float> (plain));
    if (normalized != GetStorage ()->GetNormalized (parameterId))
        BroadcastValue (parameterId, normalized);
}

double ZAMX_EqGraph::InRange (std::int32_t parameterId, double plain) const
{
    return std::clamp<double> (plain, GetStorage ()->GetMinimum (parameterId), GetStorage ()->GetMaximum (parameterId));
}

bool ZAMX_EqGraph::StepParameter (std::int32_t parameterId, std::int32_t steps)
{
    if (parameterId != kNoParameter)
        BroadcastStep (parameterId, InRange (parameterId, GetStorage ()->GetPlain (parameterId) + double (steps)));
    return true;
}

void ZAMX_EqGraph::StartGesture (std::int32_t band)
{
    SetCurrentBand (band);
    BroadcastMessage (kEditingStarted, this);
}

// Mouse

bool ZAMX_EqGraph::OnResetClick (ZEvent& event, const ZMouseInput& mouse)
{
    const auto band = mouse.LeftDown () && !IsEditing () ? FindMarker (mouse.point) : kNoBand;
    if (band == kNoBand || GetStorage () == nullptr)
        return ZControl::OnResetClick (event, mouse);
    const auto gain = ParametersOf (band).gain;
    BroadcastValue (gain, GetStorage ()->GetDefaultNormalized (gain));
    return false;
}

bool ZAMX_EqGraph::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    drag = {};
    dragMode = kUndecided;
    const auto band = FindMarker (mouse.point);
    if (!mouse.LeftDown () || IsEditing () || band == kNoBand || GetStorage () == nullptr)
        return ZControl::OnMouseDown (event, mouse);
    mouseEditing = true;
    SetHover (event, true, band);
    StartGesture (band);
    drag.lastPoint = mouse.point;
    drag.ids = ParametersOf (band);
    Anchor (mouse.point);
    dragMode = kFrequency | kGain;
    ChangeMode (mouse);
    return true;
}

void ZAMX_EqGraph::Anchor (ZPoint point)
{
    drag.pressPoint = point;
    drag.freqStart = strip->eqValue (static_cast<std::int16_t> (drag.ids.frequency));
    drag.gainStart = strip->eqValue (static_cast<std::int16_t> (drag.ids.gain));
    drag.qStart = GetStorage ()->GetPlain (drag.ids.q);
}

/// Modifiers choose once, from the free drag; letting go of them does not bring it back.
void ZAMX_EqGraph::ChangeMode (const ZMouseInput& mouse)
{
    if (dragMode != (kFrequency | kGain))
        return;
    if ((mouse.modifiers & kShift) != 0)
        dragMode = kUndecided;
    else if ((mouse.modifiers & kAlt) != 0 && drag.ids.q != kNoParameter)
        dragMode = kQ;
    else
        return;
    Anchor (mouse.point);
}

void ZAMX_EqGraph::LockAxis (ZPoint point)
{
    constexpr std::int32_t kSlack = 3; // pixels that move nothing yet
    const auto dx = std::abs (point.x - drag.pressPoint.x);
    const auto dy = std::abs (point.y - drag.pressPoint.y);
    if (dy >= dx && dy > kSlack)
        dragMode = kGain;
    else if (dx >= dy && dx > kSlack)
        dragMode = kFrequency;
}

void ZAMX_EqGraph::MoveTowards (ZPoint point)
{
    const auto& ids = drag.ids;
    const auto moved = point - drag.pressPoint;
    if ((dragMode & kFrequency) != 0 && point.x != drag.lastPoint.x)
    {
        const auto hz = scale.XToFreq (scale.FreqToX (drag.freqStart) + moved.x);
        BroadcastStep (ids.frequency, valueToStep (static_cast<std::uint32_t> (ids.frequency), hz));
    }
    if ((dragMode & kGain) != 0 && point.y != drag.lastPoint.y)
    {
        const auto gainDb = PixelToGain (ids.gain, scale.GainToY (drag.gainStart) + moved.y);
        BroadcastStep (ids.gain, valueToStep (static_cast<std::uint32_t> (ids.gain), gainDb));
    }
    if ((dragMode & kQ) != 0 && point != drag.lastPoint)
        BroadcastStep (ids.q, InRange (ids.q, drag.qStart + moved.x - moved.y));
}

bool ZAMX_EqGraph::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouseEditing)
        return ZControl::OnMouseMove (event, mouse);
    ChangeMode (mouse);
    if (dragMode == kUndecided && mouse.point != drag.lastPoint)
        LockAxis (mouse.point);
    MoveTowards (mouse.point);
    drag.lastPoint = mouse.point;
    return true;
}

bool ZAMX_EqGraph::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    if (mouseEditing)
    {
        lastDragMode = dragMode;
        lastBand = currentBand;
        BroadcastMessage (kEditingEnded, this);
        drag = {};
        dragMode = kUndecided;
        mouseEditing = false;
    }
    return ZControl::OnMouseUp (event, mouse);
}

bool ZAMX_EqGraph::OnMouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    if (!IsMouseEnabled ())
        return false;
    const auto band = IsEditing () ? kNoBand : FindMarker (wheel.point);
    if (band == kNoBand || GetStorage () == nullptr)
        return ZControl::OnMouseWheel (event, wheel);
    lastDragMode = dragMode = kFrequency | kGain;
    lastBand = band;
    if (currentBand != kNoBand && currentBand != band)
        BroadcastMessage (kEditingEnded, this);
    StartGesture (band);
    return StepParameter (ParametersOf (band).gain, wheel.delta);
}

// Keys

bool ZAMX_EqGraph::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    if (!IsMouseEnabled ())
        return false;
    dragMode = kUndecided;
    const auto steps = StepsOf (key.key);
    if (steps == 0 || lastDragMode == kUndecided || lastBand == kNoBand || mouseEditing || GetStorage () == nullptr)
        return ZControl::OnKeyDown (event, key);
    if (!keyEditing)
    {
        keyEditing = true;
        StartGesture (lastBand);
    }
    const auto ids = ParametersOf (lastBand);
    if (key.key != kKeyLeft && key.key != kKeyRight)
        return StepParameter (ids.gain, steps);
    return StepParameter ((lastDragMode & kQ) != 0 ? ids.q : ids.frequency, steps);
}

bool ZAMX_EqGraph::OnKeyUp (ZEvent& event, const ZKeyInput& key)
{
    EndKeyEdit ();
    return ZControl::OnKeyUp (event, key);
}

void ZAMX_EqGraph::EndKeyEdit ()
{
    if (!keyEditing)
        return;
    dragMode = kUndecided;
    keyEditing = false;
    BroadcastMessage (kEditingEnded, this);
}

void ZAMX_EqGraph::EndBandEdit ()
{
    EndKeyEdit ();
    lastDragMode = kUndecided;
    lastBand = kNoBand;
}

void ZAMX_EqGraph::ClearEditFlags ()
{
    mouseEditing = false;
    keyEditing = false;
}

} // namespace tessaly
