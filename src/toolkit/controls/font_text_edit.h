#pragma once

#include "draw_font.h"
#include "text_control.h"
#include "text_edit.h"

namespace tessaly
{

/// A text edit that writes in a bitmap font that lists its characters.
class ZFontTextEdit : public ZTextControl<ZTextEdit, ZDrawFont>
{
public:
    using ZTextControl::ZTextControl;
};

} // namespace tessaly
