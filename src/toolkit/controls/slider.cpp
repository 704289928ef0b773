#include "slider.h"

#include "event.h"
#include "pane_owner.h"
#include "truncate.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr std::uint32_t kFirstPageDelay = 500; // milliseconds
constexpr float kPageInterval = 30.0f;         // milliseconds

} // namespace

ZSlider::ZSlider (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZControl (paneOwner, rect, controlId)
    , axis (rect)
    , knobRect{ 0, 0, axis.Thickness (rect), axis.Thickness (rect) }
{
}

ZSlider::~ZSlider ()
{
    if (!cursorShown && GetOwner () != nullptr)
        GetOwner ()->ShowCursor ();
}

ZRect ZSlider::GetKnobRect () const
{
    const auto travel = GetTravel ();
    const auto fromStart = axis.IsReversed () ? 1.0f - GetValue () : GetValue ();
    const auto offset = Truncate (fromStart * static_cast<float> (travel) + 0.5f);
    return knobRect + GetPosition () + axis.Offset (std::max (std::min (offset, travel), 0));
}

std::int32_t ZSlider::HitTest (ZEvent& event, const ZMouseInput& mouse)
{
    if (ZControl::HitTest (event, mouse) == kSliderMiss)
        return kSliderMiss;
    return GetKnobRect ().Contains (mouse.point) ? kSliderThumbHit : kSliderTrackHit;
}

bool ZSlider::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    const auto hit = HitTest (event, mouse);
    fine = IsFineModifier (mouse.modifiers);
    dragStartValue = pressValue = GetValue ();
    lastPoint = savedCursor = mouse.point;
    pixelSum = pixelBase = 0;
    paging = Paging::None;
    nextPageTime.reset ();
    if (!cursorShown) // a second press in a drag: hiding is counted
        event.ShowCursor ();
    cursorShown = true;
    if (mouse.LeftDown () && dragMode == kSliderJump)
    {
        pressValue = PositionValue (mouse);
        if (!fine)
        {
            dragStartValue = pressValue;
            BroadcastValue (GetId (), pressValue);
        }
        return true;
    }
    if (mouse.LeftDown () && !StartDrag (event, mouse, hit))
        return false;
    return OnMouseMove (event, mouse);
}

bool ZSlider::StartDrag (ZEvent& event, const ZMouseInput& mouse, std::int32_t hit)
{
    switch (dragMode)
    {
    case kSliderEndless:
        event.HideCursor ();
        cursorShown = false;
        return true;
    case kSliderThumb:
        return hit == kSliderThumbHit;
    case kSliderPage:
        if (hit == kSliderLabelHit)
            paging = Paging::Finished;
        else if (hit != kSliderThumbHit)
            paging = PositionValue (mouse) > dragStartValue ? Paging::Up : Paging::Down;
        return true;
    default:
        return true;
    }
}

void ZSlider::SetFine (bool on)
{
    if (on == fine)
        return;
    fine = on;
    if (dragMode == kSliderEndless)
    {
        dragStartValue = GetValue ();
        pixelSum = 0;
    }
    else if (fine)
    {
        dragStartValue = GetValue ();
        pixelBase = pixelSum;
    }
    else // back to what the place of the pointer says
    {
        dragStartValue = pressValue;
        pixelBase = 0;
    }
}

bool ZSlider::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    SetFine (IsFineModifier (mouse.modifiers));
    BroadcastChange (DragValue (mouse));
    if (!cursorShown)
        event.SetMousePos (savedCursor);
    lastPoint = cursorShown ? mouse.point : savedCursor;
    return true;
}

bool ZSlider::OnMouseUp (ZEvent& event, const ZMouseInput& /*mouse*/)
{
    if (!cursorShown)
    {
        event.SetMousePos (savedCursor);
        event.ShowCursor ();
        cursorShown = true;
    }
    return false;
}

float ZSlider::DragValue (const ZMouseInput& mouse)
{
    if (dragMode == kSliderEndless)
        return EndlessValue (mouse);
    return paging != Paging::None ? PageValue (mouse) : RelativeValue (mouse);
}

float ZSlider::PositionValue (const ZMouseInput& mouse) const
{
    const auto travel = GetTravel ();
    if (travel <= 0)
        return GetValue ();
    const auto start = axis.Along (GetPosition ()) + (GetTrackLength () - travel) / 2;
    const auto part = static_cast<float> (axis.Along (mouse.point) - start) / static_cast<float> (travel);
    return std::clamp (axis.IsReversed () ? 1.0f - part : part, 0.0f, 1.0f);
}

float ZSlider::RelativeValue (const ZMouseInput& mouse)
{
    const auto moved = axis.Along (mouse.point) - axis.Along (lastPoint);
    const auto travel = GetTravel ();
    if (moved == 0 || travel <= 0)
        return GetValue ();
    pixelSum += moved;
    const auto part = static_cast<float> (pixelSum - pixelBase) / static_cast<float> (travel) * FineFactor ();
    return std::clamp (dragStartValue + (axis.IsReversed () ? -part : part), 0.0f, 1.0f);
}

float ZSlider::EndlessValue (const ZMouseInput& mouse)
{
    const auto wanted = RelativeValue (mouse);
    if ((wanted <= 0.0f && pixelSum < 0) || (wanted >= 1.0f && pixelSum > 0))
    {
        dragStartValue = wanted;
        pixelSum = 0;
    }
    return wanted;
}

float ZSlider::PageValue (const ZMouseInput& mouse)
{
    const auto present = GetValue ();
    // The difference as a signed number, so that the clock may wrap.
    if (paging == Paging::Finished || (nextPageTime && static_cast<std::int32_t> (mouse.time - *nextPageTime) <= 0))
        return present;
    const auto delay = nextPageTime ? static_cast<std::uint32_t> (kPageInterval / FineFactor ()) : kFirstPageDelay;
    nextPageTime = mouse.time + delay;
    const auto aim = PositionValue (mouse);
    if (paging == Paging::Up && aim > present)
        return StepValue (present, 1, 1.0f);
    if (paging == Paging::Down && aim < present)
        return StepValue (present, -1, 1.0f);
    paging = Paging::Finished; // the thumb has passed the pointer: for good
    return present;
}

} // namespace tessaly
