#include "matrix_menu_imp.h"

#include "matrix_menu.h"
#include "text_buffer.h"
#include <algorithm>

namespace tessaly
{

namespace
{

std::string Kept (std::string_view text)
{
    return std::string (CutAtCharacter (text, kTextSize - 1));
}

} // namespace

void ZMatrixMenuImp::InsertItem (std::int32_t index, std::string_view text)
{
    items.insert (IsItem (index) ? items.begin () + index : items.end (), { Kept (text) });
}

bool ZMatrixMenuImp::RemoveItem (std::int32_t index)
{
    if (!IsItem (index))
        return false;
    items.erase (items.begin () + index);
    SetSelected (selected);
    return true;
}

void ZMatrixMenuImp::RemoveAllItems ()
{
    items.clear ();
    SetSelected (selected);
}

void ZMatrixMenuImp::ReserveItems (std::int32_t count)
{
    items.reserve (static_cast<std::size_t> (std::max (count, 0)));
}

bool ZMatrixMenuImp::SetItemText (std::int32_t index, std::string_view text)
{
    if (!IsItem (index))
        return false;
    Item (index).text = Kept (text);
    return true;
}

std::string ZMatrixMenuImp::GetItemText (std::int32_t index) const
{
    return IsItem (index) ? Item (index).text : std::string ();
}

void ZMatrixMenuImp::SetItemChecked (std::int32_t index, bool on)
{
    if (IsItem (index))
        Item (index).checked = on;
}

void ZMatrixMenuImp::SetAllChecked (bool on)
{
    for (auto& item : items)
        item.checked = on;
}

void ZMatrixMenuImp::CheckOnly (std::int32_t index)
{
    SetAllChecked (false);
    SetItemChecked (index, true);
}

bool ZMatrixMenuImp::IsItemChecked (std::int32_t index) const
{
    return IsItem (index) && Item (index).checked;
}

void ZMatrixMenuImp::SetItemEnabled (std::int32_t index, bool on)
{
    if (IsItem (index))
        Item (index).enabled = on;
}

void ZMatrixMenuImp::SetAllEnabled (bool on)
{
    for (auto& item : items)
        item.enabled = on;
}

bool ZMatrixMenuImp::IsItemEnabled (std::int32_t index) const
{
    return IsItem (index) && Item (index).enabled;
}

ZPoint ZMatrixMenuImp::GetOpenPoint (ZPoint point) const
{
    if (control == nullptr)
        return point;
    const auto origin = control->GetOrigin ();
    const auto hit = control->GetHitRect () + origin;
    const auto middle = (hit.left + hit.right) / 2;
    switch (placement)
    {
    case kAtLeftTop:
        return { hit.left, hit.top };
    case kAtLeftBottom:
        return { hit.left, hit.bottom };
    case kAtRightTop:
        return { hit.right, hit.top };
    case kAtRightBottom:
        return { hit.right, hit.bottom };
    case kCenteredAtTop:
        return { middle, hit.top };
    case kCenteredAtBottom:
        return { middle, hit.bottom };
    default:
        return point + origin;
    }
}

} // namespace tessaly
