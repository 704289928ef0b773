#include "file_list.h"

#include <algorithm>
#include <utility>

namespace tessaly
{

std::int32_t FileList::Count () const
{
    return manager != nullptr ? static_cast<std::int32_t> (manager->Selects ().size ()) : 0;
}

std::int32_t FileList::IndexOf (const KPRD_Data* item) const
{
    for (std::int32_t i = 0; i < Count (); ++i)
        if (ItemAt (i) == item)
            return i;
    return -1;
}

KPRD_Data* FileList::ItemAt (std::int32_t index) const
{
    return index >= 0 && index < Count () ? manager->Selects ()[static_cast<std::size_t> (index)].Data () : nullptr;
}

std::uint32_t FileList::DepthAt (std::int32_t index) const
{
    return manager->Selects ()[static_cast<std::size_t> (index)].Depth ();
}

KPRD_Data* FileList::FindFolderOf (const KPRD_Data* item) const
{
    for (std::int32_t i = 0; i < Count (); ++i)
    {
        const auto& entries = ItemAt (i)->Children ();
        if (std::any_of (entries.begin (), entries.end (), [item] (const auto& entry) { return entry.get () == item; }))
            return ItemAt (i);
    }
    return nullptr;
}

// The cursor

KPRD_Data* FileList::GetSelectedItem () const
{
    return cursor != nullptr && !cursor->IsFolder () ? cursor : nullptr;
}

bool FileList::IsCurrentSelection () const
{
    return manager != nullptr && GetSelectedItem () != nullptr && manager->Current () == cursor;
}

void FileList::MoveCursor (std::int32_t lines, bool stopsAtEnds)
{
    const auto wanted = IndexOf (cursor) + lines;
    if (auto* const item = ItemAt (wanted))
    {
        SetCursorItem (item);
        if (wanted < top)
            ScrollBy (wanted - top);
        else if (wanted >= top + rows)
            ScrollBy (wanted - top - rows + 1);
        return;
    }
    if (stopsAtEnds)
        SetCursorItem (ItemAt (lines < 0 ? 0 : Count () - 1));
    ScrollToSelection ();
}

void FileList::ShowCurrent ()
{
    if (manager == nullptr)
        return;
    auto* const current = manager->Current ();
    if (auto* const folder = FindFolderOf (current); folder != nullptr && !folder->IsExpanded ())
    {
        folder->SetExpanded (true);
        manager->Rebuild ();
    }
    if (current != nullptr || GetSelectedItem () != nullptr) // without a current set the cursor stays on a folder
        SetCursorItem (current);
    ScrollToSelection ();
}

// Scrolling

void FileList::SetTop (std::int32_t index)
{
    top = std::max (std::min (index, LastTop ()), 0);
}

bool FileList::ScrollToTop ()
{
    return std::exchange (top, 0) != 0;
}

bool FileList::ScrollToEnd ()
{
    if (rows > Count ())
        return false;
    top = LastTop ();
    return true;
}

bool FileList::ScrollBy (std::int32_t lines)
{
    if (Count () < rows)
        return false;
    const auto before = top;
    SetTop (std::clamp (lines, -Count (), Count ()) + top);
    return top != before;
}

void FileList::ScrollToSelection ()
{
    const auto index = cursor != nullptr ? IndexOf (cursor) : -1;
    if (index < 0 || (top <= index && index < top + rows))
        return;
    SetTop (index - rows / 2);
}

void FileList::ToggleFolder (KPRD_Data* item)
{
    if (item == nullptr || !item->IsFolder () || manager == nullptr)
        return;
    item->SetExpanded (!item->IsExpanded ());
    manager->Rebuild ();
    if (top + rows >= Count ())
        ScrollToEnd ();
    if (rows > Count ())
        ScrollToTop ();
}

} // namespace tessaly
