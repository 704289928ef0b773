#include "tooltip.h"

#include "pane.h"
#include <utility>

namespace tessaly
{

ZTooltip::ZTooltip (std::unique_ptr<ZTooltipImp> back, std::uint32_t delayMs)
    : imp (std::move (back))
    , delay (delayMs)
{
}

void ZTooltip::Enter (ZPane& newPane)
{
    Exit ();
    if (imp != nullptr && !newPane.GetTooltip ().empty ())
        pane = &newPane;
}

void ZTooltip::Exit ()
{
    if (shown)
        imp->Hide ();
    shown = false;
    pane = nullptr;
    waited.reset ();
}

void ZTooltip::Idle (std::uint32_t time)
{
    if (pane == nullptr || shown)
        return;
    if (!waited)
        waited = time;
    if (time - *waited < delay)
        return;
    imp->Show (pane->GetFrame () + pane->GetOrigin (), pane->GetTooltip ());
    shown = true;
}

} // namespace tessaly
