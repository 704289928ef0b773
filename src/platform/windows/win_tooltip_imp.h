#pragma once

#include "tooltip_imp.h"
#include "windows_api.h"

namespace tessaly
{

/// The system's tooltip for one area of the panel's window at a time. Where it can't be made, nothing is ever shown.
/// Host's user-interface thread.
class ZWinTooltipImp final : public ZTooltipImp
{
public:
    /// @param over    the panel's window; not owned, outlives this
    /// @param pixels  a coordinate
    explicit ZWinTooltipImp (HWND over, double pixels = 1.0);
    ~ZWinTooltipImp () override;
    ZWinTooltipImp (const ZWinTooltipImp&) = delete;
    ZWinTooltipImp& operator= (const ZWinTooltipImp&) = delete;

    void Show (const ZRect& area, std::string_view text) override; ///< an ampersand underlines the character after it
    void Hide () override;
    HWND Window () const { return tooltip; } ///< null when it could not be made

private:
    HWND window; // not owned
    double scale;
    HWND tooltip = nullptr; // owned
};

} // namespace tessaly
