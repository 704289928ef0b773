#pragma once

#include "anim_control.h"
#include "slide_switch.h"

namespace tessaly
{

/// A slide switch as a strip with a frame for each position.
class ZAnimSlideSwitch : public ZPositionAnimControl<ZSlideSwitch>
{
public:
    using ZPositionAnimControl::ZPositionAnimControl;
};

} // namespace tessaly
