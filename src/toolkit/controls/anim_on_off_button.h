#pragma once

#include "on_off_button.h"
#include "state_control.h"
#include <array>
#include <cstdint>

namespace tessaly
{

enum OnOffState : std::int32_t // what an on/off button shows
{
    kStateByValue = -1,
    kStateOff = 0,
    kStateGoingOn = 1,
    kStateOn = 2,
    kStateGoingOff = 3
};

inline constexpr std::array<std::array<std::int32_t, 4>, 5> kOnOffFramePresets{
    { { 0, 1, 2, 3 }, { 0, 0, 0, 0 }, { 0, 1, 1, 0 }, { 0, 1, 2, 1 }, { 0, 1, 2, 3 } }
};

/// An on/off button with a frame for each OnOffState.
class ZAnimOnOffButton : public ZStateControl<ZOnOffButton, kOnOffFramePresets>
{
public:
    using ZStateControl::ZStateControl;

    void SetShownState (std::int32_t state); ///< of OnOffState; without effect during a press
    std::int32_t GetShownState () const { return shownState; }

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;

protected:
    std::size_t StateOf (const Frames& frames) const override;

private:
    std::int32_t shownState = kStateByValue;
    std::int32_t stateInside = kStateByValue; // what a press shows while the pointer is inside
    std::int32_t stateOutside = kStateByValue;
};

} // namespace tessaly
