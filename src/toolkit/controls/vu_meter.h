#pragma once

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
        SetMouseEnabled (false);
    }
};

} // namespace tessaly
