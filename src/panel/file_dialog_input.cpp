#include "file_dialog.h"
#include "truncate.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr std::uint32_t kFirstDelayMs = 500; // before the second step of a held button
constexpr std::uint32_t kNextDelayMs = 150;  // between the others

} // namespace

std::int32_t ZAMX_FileDialog::ItemUnder (ZPoint point) const
{
    for (std::int32_t i = 0; i < kItemCount; ++i) // the thumb before the track
        if (RectOf (i).Contains (point))
            return i;
    return kNoItem;
}

bool ZAMX_FileDialog::GoesDown (std::int32_t item) const
{
    if (item == kOkButton)
        return list.GetCursorItem () != nullptr && !list.IsCurrentSelection ();
    return item != kThumb || list.IsLongerThanSight ();
}

bool ZAMX_FileDialog::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    pressPoint = lastPoint = mouse.point;
    topAtPress = list.GetTop ();
    repeatCount = -1;
    nextTime = mouse.time + kFirstDelayMs; // ahead of the press, so that the first step is due in it
    if (mouse.LeftDown ())
    {
        pressedItem = ItemUnder (mouse.point);
        if (pressedItem == kListArea)
            return ListClick (event, mouse);
        const auto thumb = ThumbRect ();
        pageStep = mouse.point.y < thumb.top ? -list.GetRows () : mouse.point.y >= thumb.bottom ? list.GetRows () : 0;
        if (!GoesDown (pressedItem))
            pressedItem = kNoItem;
        SetDirty (true);
    }
    return OnMouseMove (event, mouse);
}

bool ZAMX_FileDialog::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (pressedItem == kNoItem)
        return true;
    if (mouse.point == lastPoint)
    {
        Repeat (mouse);
        return true;
    }
    if (pressedItem == kThumb)
    {
        DragThumb (mouse.point);
        return true;
    }
    if (pressedItem != kTrack && !RectOf (pressedItem).Contains (mouse.point))
    {
        pressedItem = kNoItem; // coming back does not press it again
        return OnMouseUp (event, mouse);
    }
    lastPoint = mouse.point;
    return true;
}

bool ZAMX_FileDialog::OnMouseUp (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    const auto stepped = repeatCount >= 0;
    switch (pressedItem)
    {
    case kOkButton:
        Accept (GetSelectedItem ());
        break;
    case kCancelButton:
        Close ();
        break;
    case kToTopButton:
        list.ScrollToTop ();
        break;
    case kToBottomButton:
        list.ScrollToEnd ();
        break;
    case kLineUpButton:
    case kLineDownButton:
        if (!stepped)
            ScrollLine ();
        break;
    case kTrack:
        if (!stepped)
            PageTowards (mouse.point);
        break;
    default:
        break;
    }
    pressPoint = lastPoint = {};
    pressedItem = kNoItem;
    topAtPress = 0;
    SetDirty (true);
    return false;
}

// Scrolling by the mouse

bool ZAMX_FileDialog::ScrollLine ()
{
    return list.ScrollBy (pressedItem == kLineUpButton ? -1 : 1);
}

void ZAMX_FileDialog::Repeat (const ZMouseInput& mouse)
{
    const auto scrolls = pressedItem == kLineUpButton || pressedItem == kLineDownButton;
    if (!scrolls && pressedItem != kTrack)
        return;
    const auto delay = repeatCount < 1 ? kFirstDelayMs : kNextDelayMs;
    if (mouse.time - nextTime < delay) // the difference: the clock may wrap
        return;
    if (scrolls && !ScrollLine ())
        return;
    SetDirty (true);
    nextTime = mouse.time;
    repeatCount = std::min (repeatCount + 1, 1);
    if (!scrolls)
        PageTowards (mouse.point);
}

void ZAMX_FileDialog::PageTowards (ZPoint point)
{
    const auto thumb = ThumbRect ();
    lastPoint = point;
    SetDirty (true);
    if (pageStep < 0 ? point.y >= thumb.top : pageStep == 0 || point.y < thumb.bottom)
        return; // the thumb has come under the pointer
    const auto wanted = list.GetTop () + pageStep;
    list.SetTop (wanted);
    if (list.GetTop () != wanted)
        pressedItem = kNoItem;
}

void ZAMX_FileDialog::DragThumb (ZPoint point)
{
    const auto way = RectOf (kTrack).Height () - ThumbRect ().Height ();
    const auto moved = point.y - pressPoint.y;
    if (moved != 0 && way > 0)
        list.SetTop (Truncate (static_cast<double> (list.LastTop ()) * moved / way) + topAtPress);
    lastPoint = point;
    SetDirty (true);
}

bool ZAMX_FileDialog::OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& wheel)
{
    if (!RectOf (kListArea).Contains (wheel.point) && !RectOf (kTrack).Contains (wheel.point))
        return false;
    const auto lines = std::clamp (wheel.delta, -list.Count (), list.Count ());
    if (!list.ScrollBy (-lines))
        return false;
    SetDirty (true);
    return true;
}

// The list

bool ZAMX_FileDialog::ListClick (ZEvent& event, const ZMouseInput& mouse)
{
    const auto area = RectOf (kListArea);
    SetDirty (true);
    if (list.GetRows () <= 0)
        return true;
    const auto rowPitch = Truncate (static_cast<double> (area.Height ()) / list.GetRows () + 0.5);
    auto* const item = list.ItemAt ((mouse.point.y - area.top) / rowPitch + list.GetTop ());
    if (item == nullptr)
        return true;
    list.SetCursorItem (item);
    const auto onIcon = mouse.point.x < TextLeft ();
    const auto onText = mouse.point.x > TextLeft ();
    if (!mouse.IsDoubleClick ())
    {
        if (onIcon)
            list.ToggleFolder (item);
    }
    else if (!item->IsFolder ())
    {
        pressedItem = list.IsCurrentSelection () ? kNoItem : kOkButton;
        OnMouseUp (event, mouse);
    }
    else if (onText) // the first click has toggled it already on the icon
    {
        list.ToggleFolder (item);
    }
    return true;
}

// Keys

bool ZAMX_FileDialog::OnKeyDown (ZEvent& /*event*/, const ZKeyInput& key)
{
    auto* const item = list.GetCursorItem ();
    if (key.key == kKeyEscape)
    {
        Close ();
        return true;
    }
    if (item == nullptr || list.IndexOf (item) < 0)
        return false;
    switch (key.key)
    {
    case kKeyDown:
        return MoveCursor (1, false);
    case kKeyUp:
        return MoveCursor (-1, false);
    case kKeyPageDown:
        return MoveCursor (list.GetRows (), true);
    case kKeyPageUp:
        return MoveCursor (-list.GetRows (), true);
    case kKeyLeft:
        return SetExpanded (*item, false);
    case kKeyRight:
        return SetExpanded (*item, true);
    case kKeyEnter:
    case kKeyReturn:
        if (item->IsFolder ())
            return false;
        if (!list.IsCurrentSelection ())
            Accept (item);
        return true;
    default:
        return false;
    }
}

bool ZAMX_FileDialog::MoveCursor (std::int32_t lines, bool pages)
{
    list.MoveCursor (lines, pages);
    SetDirty (true);
    return true;
}

bool ZAMX_FileDialog::SetExpanded (KPRD_Data& item, bool on)
{
    if (!item.IsFolder () || item.IsExpanded () == on)
        return false;
    list.ToggleFolder (&item);
    SetDirty (true);
    return true;
}

} // namespace tessaly
