#pragma once

#include "bitmap_control.h"
#include "click_button.h"

namespace tessaly
{

/// A click button that looks the same up and down.
class ZBitmapClickButton : public ZBitmapControl<ZClickButton>
{
public:
    using ZBitmapControl::ZBitmapControl;
};

} // namespace tessaly
