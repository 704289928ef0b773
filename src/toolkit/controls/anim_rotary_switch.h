#pragma once

#include "anim_control.h"
#include "rotary_switch.h"

namespace tessaly
{

/// A rotary switch as a strip with a frame for each position.
class ZAnimRotarySwitch : public ZPositionAnimControl<ZRotarySwitch>
{
public:
    using ZPositionAnimControl::ZPositionAnimControl;
};

} // namespace tessaly
