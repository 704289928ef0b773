#include "about_picture.h"

#include "canvas.h"

namespace tessaly
{

AMX_AboutPicture::AMX_AboutPicture (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZBitmapPicture (paneOwner, rect, controlId)
    , line1{ {}, rect }
    , line2{ {}, rect }
{
}

void AMX_AboutPicture::DrawActive (ZCanvas& canvas, std::uint32_t time)
{
    ZBitmapPicture::DrawActive (canvas, time);
    if (line1.text.empty ())
        return;
    canvas.SetFont ("Arial", fontSize, 0);
    canvas.SetColor (textColor, 255);
    for (const auto* line : { &line1, &line2 })
        canvas.DrawText (line->text, line->rect, kAlignLeft | kAlignMiddle);
}

} // namespace tessaly
