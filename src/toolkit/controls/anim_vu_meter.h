#pragma once

#include "anim_control.h"
#include "vu_meter.h"

namespace tessaly
{

/// A meter as a strip of frames. CreateAnim makes one in one step.
class ZAnimVuMeter : public ZRangeAnimControl<ZVuMeter>
{
public:
    using ZRangeAnimControl::ZRangeAnimControl;
};

} // namespace tessaly
