#pragma once

#include "anim_control.h"
#include "dial.h"
#include "truncate.h"

namespace tessaly
{

/// A dial as a strip of frames: the first is value 0, the last value 1.
class ZAnimDial : public ZAnimControl<ZDial>
{
public:
    using ZAnimControl::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& record, bool /*activeLook*/) const override
    {
        return Truncate (GetValue () * static_cast<float> (record.frameCount - 1) + 0.5f);
    }
};

} // namespace tessaly
