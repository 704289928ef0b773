#include "rotary_switch.h"

#include "list_steps.h"
#include "move_by_positions.h"
#include <algorithm>

namespace tessaly
{

ZRotarySwitch::ZRotarySwitch (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZDial (paneOwner, rect, controlId)
{
    SetLinearScale (0.05f);
}

std::int32_t ZRotarySwitch::FindRegion (ZPoint point) const
{
    return RegionAt (point - GetPosition ());
}

void ZRotarySwitch::ConfigureVector (bool opposite, ZVectorToDegree& target) const
{
    ZDial::ConfigureVector (opposite, target);
    const auto positions = NormalizedToInt (1.0f, GetStep ()) + 1;
    const auto begin = target.GetRelativeBegin ();
    const auto end = target.GetRelativeEnd ();
    const auto margin = (end - begin) / 2 / positions;
    target.SetRange (target.FromRelative (std::max (begin - margin, 1)),
                     target.FromRelative (std::min (end + margin, 359)));
}

bool ZRotarySwitch::IsInBand (const Aim& aim) const
{
    const auto last = NormalizedToInt (1.0f, GetStep ());
    const auto span = aim.end - aim.begin;
    const auto half = last >= 1 ? span / 2 / last : span;
    return aim.begin - half <= aim.degree && aim.degree <= aim.end + half;
}

std::int32_t ZRotarySwitch::HitTest (ZEvent& event, const ZMouseInput& mouse)
{
    if (FindRegion (mouse.point) != kNone)
        return kDialLabel;
    if (ZControl::HitTest (event, mouse) == kDialMiss)
        return kDialMiss;
    if (GetDragMode () != kDialJump)
        return kDialHit;
    if (IsOppositeGripEnabled ())
    {
        const auto aim = AimAt (mouse.point, true);
        if (IsInBand (aim) && GetIndex () == NormalizedToInt (aim.Fraction (GetValue ()), GetStep ()))
            return kDialOppositeGrip;
    }
    return IsInBand (AimAt (mouse.point, false)) ? kDialHit : kDialRefused;
}

bool ZRotarySwitch::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (const auto chosen = FindRegion (mouse.point); chosen != kNone)
        BroadcastValue (GetId (), IntToNormalized (chosen, GetStep ()));
    return ZDial::OnMouseDown (event, mouse);
}

float ZRotarySwitch::DragValue (const ZMouseInput& mouse)
{
    return MoveByPositions (GetValue (), ZDial::DragValue (mouse), GetStep ());
}

float ZRotarySwitch::AngleValue (const ZMouseInput& mouse) const
{
    return IntToNormalized (NormalizedToInt (ZDial::AngleValue (mouse), GetStep ()), GetStep ());
}

} // namespace tessaly
