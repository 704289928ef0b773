#include "slide_switch.h"

#include "list_steps.h"
#include "move_by_positions.h"

namespace tessaly
{

void ZSlideSwitch::SetDragMode (std::int32_t /*mode*/)
{
    ZSlider::SetDragMode (kSliderJump);
}

std::int32_t ZSlideSwitch::FindRegion (ZPoint point) const
{
    return RegionAt (point - GetPosition ());
}

std::int32_t ZSlideSwitch::HitTest (ZEvent& event, const ZMouseInput& mouse)
{
    return FindRegion (mouse.point) != kNone ? kSliderLabelHit : ZSlider::HitTest (event, mouse);
}

float ZSlideSwitch::PositionValue (const ZMouseInput& mouse) const
{
    return MoveByPositions (GetValue (), ZSlider::PositionValue (mouse), GetStep ());
}

bool ZSlideSwitch::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (const auto chosen = FindRegion (mouse.point); chosen != kNone)
        BroadcastValue (GetId (), IntToNormalized (chosen, GetStep ()));
    return ZSlider::OnMouseDown (event, mouse);
}

} // namespace tessaly
