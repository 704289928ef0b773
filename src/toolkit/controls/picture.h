#pragma once

#include "control.h"

namespace tessaly
{

/// A display that takes no mouse: what lies under it is found instead. Its value chooses what it shows.
class ZPicture : public ZControl
{
public:
    ZPicture (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
        : ZControl (paneOwner, rect, controlId)
    {
        SetMouseEnabled (false);
    }
};

} // namespace tessaly
