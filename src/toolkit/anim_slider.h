#pragma once

#include "anim_control.h"
#include "slider.h"
#include "truncate.h"

namespace tessaly
{

/// A slider as a strip of frames, each for an equal part of the range.
class ZAnimSlider : public ZAnimControl<ZSlider>
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
