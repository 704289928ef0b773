#pragma once

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

} // namespace tessaly
