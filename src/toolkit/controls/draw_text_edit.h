#pragma once

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

} // namespace tessaly
