#pragma once

#include "dial.h"
#include "label_regions.h"

namespace tessaly
{

/// A dial that rests on positions only, as many as its step says. A drag moves the value when the pointer crosses into
/// another position. By angle, each position has an equal part of the sweep, which is half a part wider at both ends
/// than a dial's.
class ZRotarySwitch : public ZDial, public ZLabelRegions
{
public:
    ZRotarySwitch (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId);

    std::int32_t FindRegion (ZPoint point) const; ///< in the parent's coordinates. @return a position or kNone

    float DragValue (const ZMouseInput& mouse) override;
    float AngleValue (const ZMouseInput& mouse) const override;
    void ConfigureVector (bool opposite, ZVectorToDegree& target) const override;
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    std::int32_t HitTest (ZEvent& event, const ZMouseInput& mouse) override;

private:
    bool IsInBand (const Aim& aim) const; // within the sweep and half a position
};

} // namespace tessaly
