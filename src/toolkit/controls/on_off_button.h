#pragma once

#include "button.h"
#include <cstdint>

namespace tessaly
{

enum OnOffBehaviour : std::int32_t // bits: when a button switches
{
    kOffActsAtPress = 1, // from off: during press and drag
    kOnActsAtPress = 2,  // from on: during press and drag
    kOffActsAtRelease = 4,
    kOnActsAtRelease = 8
};

/// A button that switches between 0 and 1. Off the button a pending change is taken back.
class ZOnOffButton : public ZButton
{
public:
    using ZButton::ZButton;

    void SetBehaviour (std::int32_t bits) { behaviour = bits; } ///< of OnOffBehaviour
    std::int32_t GetBehaviour () const { return behaviour; }

    bool WantedState (ZEvent& event, const ZMouseInput& mouse); ///< of the present press, by where it is

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;

private:
    void Switch (ZEvent& event, const ZMouseInput& mouse);

    std::int32_t behaviour = kOffActsAtPress | kOnActsAtRelease;
    bool wasOn = false;  // at the press
    bool target = false; // of the press
};

} // namespace tessaly
