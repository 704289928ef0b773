#pragma once

#include "tooltip_imp.h"
#include <cstdint>
#include <memory>
#include <optional>

namespace tessaly
{

class ZPane;

/// Shows a pane's tooltip when the pointer has been on it for a while. The clock is the editor's idle tick: the wait
/// begins with the first tick after Enter. Host's user-interface thread.
class ZTooltip
{
public:
    /// @param back  null: nothing is ever shown
    ZTooltip (std::unique_ptr<ZTooltipImp> back, std::uint32_t delayMs);

    void Enter (ZPane& newPane); ///< borrowed until Exit; a pane without a text stays without
    void Exit ();
    void Idle (std::uint32_t time); ///< milliseconds, may wrap
    const ZPane* GetPane () const { return pane; }

private:
    std::unique_ptr<ZTooltipImp> imp;
    std::uint32_t delay;                 // milliseconds
    ZPane* pane = nullptr;               // not owned: under the pointer; the editor calls Exit before it ends
    std::optional<std::uint32_t> waited; // since that time; none before the first tick
    bool shown = false;
};

} // namespace tessaly
