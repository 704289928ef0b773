#pragma once

#include "geometry.h"
#include <string_view>

namespace tessaly
{

/// The window's means to show a short text beside the pointer.
class ZTooltipImp
{
public:
    virtual ~ZTooltipImp () = default; ///< takes a shown text away

    virtual void Show (const ZRect& area, std::string_view text) = 0; ///< of a pane at this area of the surface; UTF-8
    virtual void Hide () = 0;
};

} // namespace tessaly
