#pragma once

#include "control.h"
#include "slider_axis.h"
#include <cstdint>

namespace tessaly
{

/// A switch of two positions with three zones along its length. A press or drag in an end zone sets its position at
/// once, a release in the middle zone flips the switch.
class ZToggleSwitch : public ZControl
{
public:
    ZToggleSwitch (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId); ///< with zones of a third each

    void SetStyle (std::int32_t bits) { axis.SetStyle (bits); } ///< of SliderStyle
    std::int32_t GetStyle () const { return axis.GetStyle (); }
    void SetZones (std::int32_t start, std::int32_t end); ///< of the middle one, in pixels from the frame's left or top

    std::int32_t WantedIndex (const ZMouseInput& mouse) const; ///< that a drag to there asks for: 0 or 1

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;

protected:
    bool IsInMiddle (ZPoint point) const;

private:
    std::int32_t StartIndex () const { return axis.IsReversed () ? 1 : 0; } // of the zone at the left or top
    std::int32_t Place (ZPoint point) const { return axis.Along (point - GetPosition ()); }
    void BroadcastIndex (std::int32_t index);

    ZSliderAxis axis;
    std::int32_t zoneStart;
    std::int32_t zoneEnd;
    ZPoint lastPoint; // of the present drag
};

} // namespace tessaly
