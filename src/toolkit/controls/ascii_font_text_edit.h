#pragma once

#include "draw_ascii_font.h"
#include "text_control.h"
#include "text_edit.h"

namespace tessaly
{

/// A text edit that writes in a bitmap font laid out by character code.
class ZAsciiFontTextEdit : public ZTextControl<ZTextEdit, ZDrawAsciiFont>
{
public:
    using ZTextControl::ZTextControl;
};

} // namespace tessaly
