#pragma once

#include "anim_control.h"
#include "draw_text.h"
#include "matrix_menu.h"
#include "text_control.h"

namespace tessaly
{

/// A matrix menu that shows the present choice as a text.
class ZDrawMatrixMenu : public ZTextControl<ZMatrixMenu, ZDrawText>
{
public:
    using ZTextControl::ZTextControl;
};

/// A matrix menu that shows the present choice as a frame of a strip, the first one while nothing is selected.
class ZAnimMatrixMenu : public ZAnimControl<ZMatrixMenu>
{
public:
    using ZAnimControl::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& /*record*/, bool /*activeLook*/) const override { return GetSelected (); }
};

} // namespace tessaly
