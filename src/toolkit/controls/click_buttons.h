#pragma once

#include "bitmap_control.h"
#include "click_button.h"
#include "state_control.h"
#include <array>
#include <cstdint>

namespace tessaly
{

inline constexpr std::array<std::array<std::int32_t, 2>, 3> kClickFramePresets{ { { 0, 1 }, { 0, 0 }, { 0, 1 } } };

/// A click button with a frame for up and one for down.
class ZAnimClickButton : public ZStateControl<ZClickButton, kClickFramePresets>
{
public:
    using ZStateControl::ZStateControl;

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;

protected:
    std::size_t StateOf (const Frames& /*frames*/) const override { return pressed ? 1 : 0; }

private:
    bool pressed = false; // and the pointer inside
};

/// A click button that looks the same up and down.
class ZBitmapClickButton : public ZBitmapControl<ZClickButton>
{
public:
    using ZBitmapControl::ZBitmapControl;
};

} // namespace tessaly
