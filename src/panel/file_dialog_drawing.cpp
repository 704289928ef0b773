#include "bitmap.h"
#include "canvas.h"
#include "file_dialog.h"
#include "truncate.h"

namespace tessaly
{

namespace
{

constexpr std::int32_t kPlain = 0; // style of a font

} // namespace

void ZAMX_FileDialog::DrawActive (ZCanvas& canvas, std::uint32_t time)
{
    if (background != nullptr)
        canvas.DrawBitmap (*background, GetDrawRect (), {});
    DrawList (canvas, time);
    DrawItems (canvas, time);
}

// The list

std::int32_t ZAMX_FileDialog::TextLeft () const
{
    return RectOf (kListArea).left + iconRect.Width () + iconGap;
}

void ZAMX_FileDialog::DrawList (ZCanvas& canvas, std::uint32_t /*time*/) const
{
    if (list.GetRows () <= 0)
        return;
    auto row = RectOf (kListArea);
    const auto rowHeight = row.Height () / list.GetRows ();
    row.bottom = row.top + rowHeight;
    canvas.SetColor (textColor, 255);
    for (std::int32_t i = 0; i < list.GetRows () && list.GetTop () + i < list.Count (); ++i)
    {
        DrawLine (canvas, row, list.GetTop () + i);
        row = row + ZPoint{ 0, rowHeight + 1 };
    }
}

void ZAMX_FileDialog::DrawLine (ZCanvas& canvas, const ZRect& row, std::int32_t index) const
{
    const auto& item = *list.ItemAt (index);
    if (item.IsFolder ())
        canvas.SetFont ("Arial", fontSize + 1, kBold);
    else
        canvas.SetFont ("Arial", fontSize, kPlain);
    if (&item == list.GetCursorItem ())
    {
        canvas.SetColor (selectionColor, 255);
        canvas.FillRect (row);
        canvas.SetColor (textColor, 255);
    }
    if (item.IsFolder ())
        DrawIcon (canvas, row, item);
    auto text = row;
    text.left = TextLeft () + (iconGap / 2 + fontSize - 1) * static_cast<std::int32_t> (list.DepthAt (index));
    canvas.DrawText (item.Name (), text, kAlignLeft | kAlignMiddle);
}

void ZAMX_FileDialog::DrawIcon (ZCanvas& canvas, const ZRect& row, const KPRD_Data& folder) const
{
    if (iconImage == nullptr)
        return;
    const ZPoint topLeft{ RectOf (kListArea).left + iconGap / 2, row.top + (row.Height () - iconRect.Height ()) / 2 };
    const auto from = iconRect.TopLeft () + ZPoint{ 0, folder.IsExpanded () ? iconRect.Height () : 0 };
    canvas.DrawBitmap (*iconImage, iconRect - iconRect.TopLeft () + topLeft, from);
}

// Buttons and scroll bar

std::int32_t ZAMX_FileDialog::FrameOf (std::int32_t item) const
{
    const auto pressed = item == pressedItem;
    if (item != kOkButton)
        return pressed ? 1 : 0;
    if (pressed)
        return items[kOkButton].frames - 1;
    return list.GetCursorItem () != nullptr && !list.IsCurrentSelection () ? 1 : 0;
}

void ZAMX_FileDialog::DrawItems (ZCanvas& canvas, std::uint32_t /*time*/) const
{
    for (std::int32_t i = 0; i < kItemCount; ++i)
    {
        const auto rect = RectOf (i);
        if (const auto* image = items[static_cast<std::size_t> (i)].image; image != nullptr)
        {
            canvas.DrawBitmap (*image, rect, { 0, FrameOf (i) * rect.Height () });
        }
        else if (i == kThumb)
        {
            canvas.SetColor (thumbColor, 255);
            canvas.FillRect ({ rect.left + thumbInsetX, rect.top + thumbInsetY, rect.right - thumbInsetX,
                               rect.bottom - thumbInsetY });
        }
    }
}

} // namespace tessaly
