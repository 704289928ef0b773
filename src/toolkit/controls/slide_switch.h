#pragma once

#include "label_regions.h"
#include "slider.h"

namespace tessaly
{

/// A slider that rests on positions only, as many as its step says. It always jumps to the pointer, and each position
/// has an equal part of the whole track.
class ZSlideSwitch : public ZSlider, public ZLabelRegions
{
public:
    using ZSlider::ZSlider;

    void SetDragMode (std::int32_t mode) override; ///< whatever is asked: kSliderJump
    std::int32_t GetTravel () const override { return GetTrackLength (); }
    std::int32_t FindRegion (ZPoint point) const; ///< in the parent's coordinates. @return a position or kNone

    float DragValue (const ZMouseInput& mouse) override { return PositionValue (mouse); }
    float PositionValue (const ZMouseInput& mouse) const override;
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    std::int32_t HitTest (ZEvent& event, const ZMouseInput& mouse) override;
};

} // namespace tessaly
