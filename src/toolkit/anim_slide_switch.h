#pragma once

#include "anim_control.h"
#include "slide_switch.h"

namespace tessaly
{

/// A slide switch as a strip with a frame for each position.
class ZAnimSlideSwitch : public ZAnimControl<ZSlideSwitch>
{
public:
    using ZAnimControl::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& /*record*/, bool /*activeLook*/) const override { return GetIndex (); }
};

} // namespace tessaly
