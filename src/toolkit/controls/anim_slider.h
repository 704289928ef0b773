#pragma once

#include "anim_control.h"
#include "slider.h"

namespace tessaly
{

/// A slider as a strip of frames.
class ZAnimSlider : public ZRangeAnimControl<ZSlider>
{
public:
    using ZRangeAnimControl::ZRangeAnimControl;
};

} // namespace tessaly
