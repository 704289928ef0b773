#pragma once

#include "anim_control.h"
#include "truncate.h"
#include "vu_meter.h"

namespace tessaly
{

/// A meter as a strip of frames, each for an equal part of the range. CreateAnim makes one in one step.
class ZAnimVuMeter : public ZAnimControl<ZVuMeter>
{
public:
    using ZAnimControl::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& record, bool /*activeLook*/) const override
    {
        return Truncate (GetValue () * static_cast<float> (record.frameCount));
    }
};

} // namespace tessaly
