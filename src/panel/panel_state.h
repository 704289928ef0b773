#pragma once

namespace tessaly
{

/// What a control asks of the panel that it stands on. The owner of the panes implements it; one that doesn't is no panel
/// of the strip.
class PanelState
{
public:
    virtual ~PanelState () = default;

    virtual bool AllGuidesIdle () const = 0; ///< no ring is open, growing or shrinking
};

} // namespace tessaly
