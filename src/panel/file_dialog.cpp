#include "file_dialog.h"

#include "truncate.h"
#include <algorithm>

namespace tessaly
{

void ZAMX_FileDialog::SetSelectionColor (std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    selectionColor = { red, green, blue };
}

void ZAMX_FileDialog::SetFolderIcon (ZBitmap* image, const ZRect& rect, std::int32_t /*frames*/, std::int32_t gap)
{
    iconImage = image;
    iconRect = rect;
    iconGap = gap;
}

void ZAMX_FileDialog::SetItem (std::int32_t index, ZBitmap* image, std::int32_t frames, const ZRect& rect)
{
    if (index >= 0 && index < kItemCount)
        items[static_cast<std::size_t> (index)] = { image, frames, rect };
}

void ZAMX_FileDialog::SetThumbStyle (std::int32_t insetX, std::int32_t insetY, std::uint8_t red, std::uint8_t green,
                                     std::uint8_t blue)
{
    thumbInsetX = insetX;
    thumbInsetY = insetY;
    thumbColor = { red, green, blue };
}

void ZAMX_FileDialog::Show ()
{
    if (IsVisible ())
        return;
    accepted = false;
    Refresh ();
    ZControl::Show ();
}

void ZAMX_FileDialog::Refresh ()
{
    list.ShowCurrent ();
}

ZRect ZAMX_FileDialog::RectOf (std::int32_t item) const
{
    return item == kThumb ? ThumbRect () : items[static_cast<std::size_t> (item)].rect;
}

void ZAMX_FileDialog::Accept (KPRD_Data* item)
{
    if (item == nullptr || item->IsFolder () || list.GetManager () == nullptr)
        return;
    list.GetManager ()->SetCurrent (item);
    accepted = true;
    Close ();
}

void ZAMX_FileDialog::Close ()
{
    BroadcastValue (GetId (), 0.0f);
}

ZRect ZAMX_FileDialog::ThumbRect () const
{
    constexpr std::int32_t kLeastHeight = 7;
    auto thumb = RectOf (kTrack);
    if (!list.IsLongerThanSight ())
        return thumb;
    const auto height = thumb.Height ();
    const auto inSight = static_cast<double> (height) / list.Count () * list.GetRows ();
    const auto size = std::max (Truncate (inSight), kLeastHeight);
    const auto y = Truncate (static_cast<double> (list.GetTop ()) * (height - size) / list.LastTop ());
    thumb.top += std::max (std::min (y, height - size), 0);
    thumb.bottom = thumb.top + size;
    return thumb;
}

} // namespace tessaly
