#pragma once

#include "anim_control.h"
#include "control.h"

namespace tessaly
{

/// A meter: takes no mouse. Its value is a level that its source has scaled to 0 to 1.
class ZVuMeter : public ZControl
{
public:
    ZVuMeter (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
        : ZControl (paneOwner, rect, controlId)
    {
        ZPane::SetMouseEnabled (false);
    }
};

/// A meter as a strip of frames. CreateAnim makes one in one step.
class ZAnimVuMeter : public ZRangeAnimControl<ZVuMeter>
{
public:
    using ZRangeAnimControl::ZRangeAnimControl;
};

} // namespace tessaly
