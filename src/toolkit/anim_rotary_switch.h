#pragma once

#include "anim_control.h"
#include "rotary_switch.h"

namespace tessaly
{

/// A rotary switch as a strip with a frame for each position.
class ZAnimRotarySwitch : public ZAnimControl<ZRotarySwitch>
{
public:
    using ZAnimControl::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& /*record*/, bool /*activeLook*/) const override { return GetIndex (); }
};

} // namespace tessaly
