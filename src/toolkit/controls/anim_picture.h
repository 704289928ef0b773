#pragma once

#include "anim_control.h"
#include "picture.h"

namespace tessaly
{

/// A picture out of several, chosen by the position of its value. CreateAnim makes one in one step.
class ZAnimPicture : public ZPositionAnimControl<ZPicture>
{
public:
    using ZPositionAnimControl::ZPositionAnimControl;
};

} // namespace tessaly
