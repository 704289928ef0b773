#include "dial.h"

#include "truncate.h"
#include <algorithm>

namespace tessaly
{

ZDial::ZDial (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZControl (paneOwner, rect, controlId)
    , center{ rect.Width () / 2, rect.Height () / 2 }
{
}

void ZDial::SetDegreeRange (std::int32_t begin, std::int32_t end)
{
    beginDegree = begin;
    endDegree = end;
}

void ZDial::SetGripTolerance (std::int32_t degrees)
{
    gripTolerance = std::clamp (degrees, 0, 90);
}

float ZDial::Aim::Fraction (float whenNoSweep) const
{
    return end == begin ? whenNoSweep : static_cast<float> (degree - begin) / static_cast<float> (end - begin);
}

ZDial::Aim ZDial::AimOf (const ZVectorToDegree& sweep, ZPoint point)
{
    return { sweep.GetDegree (point), sweep.GetRelativeBegin (), sweep.GetRelativeEnd () };
}

ZDial::Aim ZDial::AimAt (ZPoint point, bool opposite) const
{
    ZVectorToDegree sweep;
    ConfigureVector (opposite, sweep);
    return AimOf (sweep, point);
}

void ZDial::ConfigureVector (bool opposite, ZVectorToDegree& target) const
{
    const auto turn = opposite ? 180 : 0;
    target.SetRange (beginDegree - turn, endDegree - turn);
    target.SetDirection (direction);
    target.SetCenter (GetPosition () + center);
}

bool ZDial::IsOnOppositeGrip (ZPoint point) const
{
    const auto aim = AimAt (point, true);
    const auto pointer =
        Truncate (GetValue () * static_cast<float> (aim.end - aim.begin) + static_cast<float> (aim.begin));
    return aim.degree >= static_cast<std::int64_t> (pointer) - gripTolerance &&
           aim.degree <= static_cast<std::int64_t> (pointer) + gripTolerance;
}

std::int32_t ZDial::HitTest (ZEvent& event, const ZMouseInput& mouse)
{
    if (ZControl::HitTest (event, mouse) == kDialMiss)
        return kDialMiss;
    return dragMode == kDialJump && oppositeGripEnabled && IsOnOppositeGrip (mouse.point) ? kDialOppositeGrip
                                                                                          : kDialHit;
}

void ZDial::AnchorTurn (float from)
{
    turnAnchor = from;
    degreeSum = 0;
}

void ZDial::JumpTo (const ZMouseInput& mouse)
{
    AnchorTurn (AngleValue (mouse));
    const auto aim = AimOf (vector, mouse.point);
    // In the gap the pointer has some way to go before the value may move.
    if (aim.degree < aim.begin)
        degreeSum = aim.degree - aim.begin;
    if (aim.end < aim.degree)
        degreeSum = aim.degree - aim.end;
}

bool ZDial::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    const auto hit = HitTest (event, mouse);
    if (hit == kDialRefused)
        return false;
    drag.Begin (GetValue (), IsFineModifier (mouse.modifiers));
    lastPoint = mouse.point;
    oppositeGrip = hit == kDialOppositeGrip;
    ReconfigureDrag ();
    lastDegree = vector.GetDegree (mouse.point);
    AnchorTurn (GetValue ());
    if (!mouse.LeftDown () || dragMode != kDialJump || drag.IsFine ())
        return OnMouseMove (event, mouse);
    JumpTo (mouse);
    if (hit != kDialLabel)
        BroadcastValue (GetId (), turnAnchor);
    return true;
}

bool ZDial::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    if (drag.SetFine (IsFineModifier (mouse.modifiers), GetValue ()))
    {
        ReconfigureDrag ();
        if (dragMode == kDialJump && !drag.IsFine ())
            JumpTo (mouse);
        else
            AnchorTurn (GetValue ());
    }
    BroadcastChange (DragValue (mouse));
    lastPoint = mouse.point;
    return true;
}

bool ZDial::OnMouseUp (ZEvent& /*event*/, const ZMouseInput& /*mouse*/)
{
    return false;
}

float ZDial::DragValue (const ZMouseInput& mouse)
{
    return dragMode == kDialLinear ? LinearValue (mouse) : CircularValue (mouse);
}

float ZDial::AngleValue (const ZMouseInput& mouse) const
{
    return std::clamp (AimOf (vector, mouse.point).Fraction (GetValue ()), 0.0f, 1.0f);
}

float ZDial::CircularValue (const ZMouseInput& mouse)
{
    const auto aim = AimOf (vector, mouse.point);
    if (aim.degree == lastDegree || aim.begin == aim.end)
        return GetValue ();
    degreeSum += Wrap180 (aim.degree - lastDegree); // the shorter way round
    lastDegree = aim.degree;
    const auto factor = drag.IsFine () ? kFineFactor : 1.0f;
    const auto turned = static_cast<float> (degreeSum) / static_cast<float> (aim.end - aim.begin);
    return std::clamp (turnAnchor + turned * factor, 0.0f, 1.0f);
}

float ZDial::LinearValue (const ZMouseInput& mouse)
{
    if (mouse.point == lastPoint)
        return GetValue ();
    const auto moved = mouse.point - lastPoint;
    return drag.Move (*this, moved.x - moved.y, linearScale);
}

} // namespace tessaly
