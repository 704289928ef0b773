#include "guide_upper_dial.h"

#include "amx_font_text_edit.h"
#include "canvas.h"
#include "event.h"
#include "guide_lower_dial.h"
#include "pane_owner.h"
#include "panel_ids.h"
#include "step_keys.h"

namespace tessaly
{

namespace
{

constexpr std::uint32_t kAnimationMs = 200; // from knob to ring, and back

/// What is cut off on each side of a length for the inner circle: four fifths of its half.
std::int32_t InnerMargin (std::int32_t length)
{
    return length / 2 / 5 * 4;
}

ZRect RectAt (ZPoint topLeft, ZPoint size)
{
    return { topLeft.x, topLeft.y, topLeft.x + size.x, topLeft.y + size.y };
}

ZRect Shrunk (const ZRect& rect, std::int32_t x, std::int32_t y)
{
    return { rect.left + x, rect.top + y, rect.right - x, rect.bottom - y };
}

} // namespace

// What it is made of

void ZAMX_GuideUpperDial::SetLowerDial (ZAMX_GuideLowerDial* dial)
{
    lowerDial = dial;
    panelImage = dial != nullptr ? static_cast<ZDrawBack*> (dial)->GetRecordActive ().bitmap : nullptr;
}

void ZAMX_GuideUpperDial::SetTexts (ZAMX_FontTextEdit* shownAtRest, ZAMX_FontTextEdit* shownAbove)
{
    valueText = shownAtRest;
    guideText = shownAbove;
}

void ZAMX_GuideUpperDial::SetGeometry (ZPoint origin, ZPoint smallSize, ZPoint bigSize)
{
    smallRect = RectAt (origin, smallSize);
    ringOffset = { (bigSize.x - smallSize.x) / 2, (bigSize.y - smallSize.y) / 2 };
    bigRect = RectAt (origin - ringOffset, bigSize);
    innerRect = Shrunk (bigRect, InnerMargin (bigSize.x), InnerMargin (bigSize.y));
    SetFrame (smallRect);
    SetDirty (true);
}

bool ZAMX_GuideUpperDial::IsInCircle (const ZRect& rect, ZPoint point)
{
    const auto radius = rect.Width () / 2.0;
    const auto x = point.x - (rect.left + radius);
    const auto y = point.y - (rect.top + radius);
    return x * x + y * y <= radius * radius;
}

void ZAMX_GuideUpperDial::ConfigureVector (bool opposite, ZVectorToDegree& target) const
{
    ZAnimDial::ConfigureVector (opposite, target);
    target.SetCenter (bigRect.TopLeft () + GetCenter ()); // that of the knob, whatever the frame is just now
}

// Opening and closing

void ZAMX_GuideUpperDial::Open (OpenReason reason)
{
    openReason = reason;
    state = State::kGrowing;
    animationStart.reset ();
    BroadcastMessage (kEditingStarted, this);
    if (lowerDial != nullptr)
        lowerDial->SetDirty (true);
    Show ();
    SetActive (true);
    SetMouseEnabled (true);
    if (guideText != nullptr)
        guideText->Show ();
    if (valueText != nullptr)
        valueText->HideDigits ();
}

void ZAMX_GuideUpperDial::Close (bool notify)
{
    state = State::kShrinking;
    openReason = kByNothing;
    lastTouch = 0;
    animationStart.reset ();
    if (notify)
        BroadcastMessage (kEditingEnded, this);
}

void ZAMX_GuideUpperDial::CloseIfOpen (bool notify)
{
    if (state == State::kGrowing || state == State::kOpen)
        Close (notify);
}

void ZAMX_GuideUpperDial::CloseAtOnce ()
{
    CloseIfOpen (true);
    if (!IsIdle ())
        Rest ();
}

void ZAMX_GuideUpperDial::Rest ()
{
    state = State::kIdle;
    pressed = false;
    SetFrame (smallRect);
    if (guideText != nullptr)
        guideText->Hide ();
    if (valueText != nullptr)
        valueText->ShowDigits ();
    if (lowerDial != nullptr)
        lowerDial->SetDirty (true);
    Hide ();
    SetActive (false);
    SetMouseEnabled (false);
}

void ZAMX_GuideUpperDial::StepAnimation (std::uint32_t time)
{
    if (!animationStart)
        animationStart = time;
    const auto growing = state == State::kGrowing;
    const auto elapsed = time - *animationStart; // the clock may wrap
    if (elapsed >= kAnimationMs)
    {
        SetFrame (growing ? bigRect : smallRect);
    }
    else
    {
        const auto moved = Truncate (static_cast<double> (elapsed) / kAnimationMs * ringOffset.x + 0.5);
        SetFrame (growing ? Shrunk (smallRect, -moved, -moved) : Shrunk (bigRect, moved, moved));
    }
    SetDirty (true);
}

bool ZAMX_GuideUpperDial::HasCapturePane () const
{
    return GetOwner () != nullptr && GetOwner ()->GetCapturePane () != nullptr;
}

void ZAMX_GuideUpperDial::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    ZAnimDial::OnIdle (event, mouse);
    switch (state)
    {
    case State::kIdle:
        break;
    case State::kGrowing:
        if (GetFrame () != bigRect)
        {
            StepAnimation (mouse.time);
            break;
        }
        state = State::kOpen;
        lastTouch = mouse.time;
        break;
    case State::kShrinking:
        if (GetFrame () == smallRect)
            Rest ();
        else
            StepAnimation (mouse.time);
        break;
    case State::kOpen:
        CloseWhenRested (mouse.time);
        break;
    }
}

void ZAMX_GuideUpperDial::CloseWhenRested (std::uint32_t time)
{
    const auto untouched = static_cast<std::int32_t> (time - lastTouch); // the clock may wrap
    if (openReason != kByMouse && (!IsActive () || untouched >= holdTime))
        Close (true);
}

// Drawing

void ZAMX_GuideUpperDial::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    const auto& strip = ZDrawAnim::GetRecordActive ();
    if (strip.bitmap == nullptr)
        return;
    const auto frameTop = FrameOf (strip, true) * bigRect.Height ();
    const ZPoint bigSize = bigRect.BottomRight () - bigRect.TopLeft ();
    canvas.StretchBitmap (*strip.bitmap, GetDrawRect (), RectAt ({ 0, frameTop }, bigSize));
    if (panelImage == nullptr)
        return;
    canvas.SetClipRect (smallRect);
    canvas.DrawBitmap (*panelImage, smallRect, smallRect.TopLeft ());
    canvas.DrawBitmap (*strip.bitmap, smallRect, { ringOffset.x, frameTop + ringOffset.y });
}

// Input

std::int32_t ZAMX_GuideUpperDial::HitTest (ZEvent& event, const ZMouseInput& mouse)
{
    if (mouse.buttons == 0 && !IsIdle ())
        return IsInCircle (GetFrame (), mouse.point) ? kDialHit : kDialMiss;
    return ZAnimDial::HitTest (event, mouse);
}

bool ZAMX_GuideUpperDial::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    pressed = false;
    if (!mouse.LeftDown ())
        return false;
    if (!IsIdle () && !IsInCircle (innerRect, mouse.point))
        return ZAnimDial::OnMouseDown (event, mouse);
    pressed = true;
    pressPoint = mouse.point;
    if (state == State::kIdle || state == State::kShrinking)
        Open (kByMouse);
    else
        openReason = kByMouse; // it is held now
    return true;
}

bool ZAMX_GuideUpperDial::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    lastTouch = mouse.time;
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    if (!pressed)
        return ZAnimDial::OnMouseMove (event, mouse);
    if (mouse.point == pressPoint || IsInCircle (innerRect, mouse.point))
        return true;
    pressed = false;
    return ZAnimDial::OnMouseDown (event, mouse); // the drag begins here, where the pointer left the knob
}

bool ZAMX_GuideUpperDial::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    pressed = false;
    if (state == State::kOpen || !IsInCircle (GetFrame (), mouse.point)) // otherwise it goes on growing, and stays
        CloseIfOpen (true);
    return ZAnimDial::OnMouseUp (event, mouse);
}

void ZAMX_GuideUpperDial::OnMouseExit (ZEvent& /*event*/, const ZMouseInput& /*mouse*/)
{
    if (!HasCapturePane ())
        CloseIfOpen (true);
}

bool ZAMX_GuideUpperDial::OnMouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    lastTouch = wheel.time;
    if (IsIdle ())
        Open (kByWheel); // and this notch changes nothing
    else
        ZAnimDial::OnMouseWheel (event, wheel);
    return true;
}

bool ZAMX_GuideUpperDial::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    lastTouch = key.time;
    if (IsIdle ())
    {
        if (!IsStepKey (key))
            return false;
        Open (kByKey);
        return true;
    }
    const auto ends = key.key == kKeyReturn || key.key == kKeyEnter || key.key == kKeyEscape;
    if (!ends || event.GetButtons () != 0)
        return ZAnimDial::OnKeyDown (event, key);
    CloseIfOpen (true);
    return true;
}

} // namespace tessaly
