#pragma once

#include "tooltip_imp.h"
#include <string>

namespace tessaly::gallery
{

/// What a tooltip says at present, for the window to draw over the surface.
struct TooltipSign
{
    ZRect area;       // of the pane
    std::string text; // empty: none is shown
};

class SignTooltipImp final : public ZTooltipImp
{
public:
    explicit SignTooltipImp (TooltipSign& window)
        : sign (window)
    {
    }
    ~SignTooltipImp () override { sign = {}; }
    void Show (const ZRect& area, std::string_view text) override { sign = { area, std::string (text) }; }
    void Hide () override { sign = {}; }

private:
    TooltipSign& sign; // not owned: the window's
};

} // namespace tessaly::gallery
