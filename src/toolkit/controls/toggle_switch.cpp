#include "toggle_switch.h"

#include "list_steps.h"

namespace tessaly
{

ZToggleSwitch::ZToggleSwitch (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZControl (paneOwner, rect, controlId)
    , axis (rect)
    , zoneStart (axis.Length (rect) / 3)
    , zoneEnd (2 * zoneStart)
{
}

void ZToggleSwitch::SetZones (std::int32_t start, std::int32_t end)
{
    zoneStart = start;
    zoneEnd = end;
}

bool ZToggleSwitch::IsInMiddle (ZPoint point) const
{
    const auto place = Place (point);
    return zoneStart < place && place < zoneEnd;
}

std::int32_t ZToggleSwitch::WantedIndex (const ZMouseInput& mouse) const
{
    const auto place = Place (mouse.point);
    if (place == Place (lastPoint))
        return GetIndex ();
    if (place <= zoneStart)
        return StartIndex ();
    return place >= zoneEnd ? 1 - StartIndex () : GetIndex ();
}

void ZToggleSwitch::BroadcastIndex (std::int32_t index)
{
    BroadcastValue (GetId (), IntToNormalized (index, GetStep ()));
}

bool ZToggleSwitch::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    // The press counts as a move from the end where the switch is.
    lastPoint = GetIndex () == StartIndex () ? GetFrame ().TopLeft () : GetFrame ().BottomRight ();
    return OnMouseMove (event, mouse);
}

bool ZToggleSwitch::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    if (const auto wanted = WantedIndex (mouse); wanted != GetIndex ())
        BroadcastIndex (wanted);
    lastPoint = mouse.point;
    return true;
}

bool ZToggleSwitch::OnMouseUp (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    if (IsInMiddle (mouse.point))
        BroadcastIndex (GetIndex () == 0 ? 1 : 0);
    return false;
}

} // namespace tessaly
