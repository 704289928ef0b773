#pragma once

#include "click_button.h"

namespace tessaly
{

/// A place on the panel that can be clicked. It draws nothing and takes neither wheel nor keys.
class AMX_ClickButton final : public ZClickButton
{
public:
    using ZClickButton::ZClickButton;

    bool OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& /*wheel*/) override { return false; }
    bool OnKeyDown (ZEvent& /*event*/, const ZKeyInput& /*key*/) override { return false; }
    bool OnKeyRepeat (ZEvent& /*event*/, const ZKeyInput& /*key*/) override { return false; }
};

} // namespace tessaly
