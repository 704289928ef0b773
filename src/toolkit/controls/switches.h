#pragma once

#include "anim_control.h"
#include "rotary_switch.h"
#include "slide_switch.h"

namespace tessaly
{

/// A rotary switch as a strip with a frame for each position.
class ZAnimRotarySwitch : public ZPositionAnimControl<ZRotarySwitch>
{
public:
    using ZPositionAnimControl::ZPositionAnimControl;
};

/// A slide switch as a strip with a frame for each position.
class ZAnimSlideSwitch : public ZPositionAnimControl<ZSlideSwitch>
{
public:
    using ZPositionAnimControl::ZPositionAnimControl;
};

} // namespace tessaly
