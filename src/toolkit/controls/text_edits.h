#pragma once

#include "draw_ascii_font.h"
#include "draw_font.h"
#include "draw_text.h"
#include "text_control.h"
#include "text_edit.h"

namespace tessaly
{

/// A text edit that writes in a font of the canvas.
class ZDrawTextEdit : public ZTextControl<ZTextEdit, ZDrawText>
{
public:
    using ZTextControl::ZTextControl;
};

/// A text edit that writes in a bitmap font that lists its characters.
class ZFontTextEdit : public ZTextControl<ZTextEdit, ZDrawFont>
{
public:
    using ZTextControl::ZTextControl;
};

/// A text edit that writes in a bitmap font laid out by character code.
class ZAsciiFontTextEdit : public ZTextControl<ZTextEdit, ZDrawAsciiFont>
{
public:
    using ZTextControl::ZTextControl;
};

} // namespace tessaly
