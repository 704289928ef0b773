#pragma once

#include "state_control.h"
#include "toggle_switch.h"
#include <array>
#include <cstdint>

namespace tessaly
{

inline constexpr std::int32_t kNoFrame = -1;

/// Frames of low, middle and high; the first strip has no middle frame and keeps showing the present position.
inline constexpr std::array<std::array<std::int32_t, 3>, 2> kToggleFramePresets{ { { 0, kNoFrame, 1 }, { 0, 1, 2 } } };

/// A toggle switch with a frame for each position and one for the middle zone.
class ZAnimToggleSwitch : public ZStateControl<ZToggleSwitch, kToggleFramePresets>
{
public:
    using ZStateControl::ZStateControl;

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;

protected:
    std::size_t StateOf (const Frames& frames) const override;

private:
    enum State : std::size_t
    {
        kLow,
        kMiddle,
        kHigh
    };

    bool middleShown = false; // a press is in the middle zone
};

} // namespace tessaly
