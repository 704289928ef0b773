#pragma once

#include "anim_control.h"
#include "picture.h"

namespace tessaly
{

/// A picture out of several: the position of its value, by its step, is the frame. CreateAnim makes one in one step.
class ZAnimPicture : public ZAnimControl<ZPicture>
{
public:
    using ZAnimControl::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& /*record*/, bool /*activeLook*/) const override { return GetIndex (); }
};

} // namespace tessaly
