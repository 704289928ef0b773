#pragma once

#include "kprd_manager.h"
#include <cstdint>

namespace tessaly
{

/// The lines of the file dialog: which of those that the collection lists are in sight, and where the cursor is. Folders
/// open and close in the collection itself, so they stay as they are while no dialog shows.
///
/// Without a collection there are no lines. Indexes count the collection's lines from 0.
class FileList
{
public:
    void SetManager (KPRD_Manager* newManager) { manager = newManager; } ///< borrowed, or null
    KPRD_Manager* GetManager () const { return manager; }
    void SetRows (std::int32_t count) { rows = count; } ///< lines that are in sight at once
    std::int32_t GetRows () const { return rows; }

    std::int32_t Count () const;
    std::int32_t IndexOf (const KPRD_Data* item) const;    ///< -1 for what has no line
    KPRD_Data* ItemAt (std::int32_t index) const;          ///< null for a bad index
    std::uint32_t DepthAt (std::int32_t index) const;      ///< 0 at the top level; the index is one of the lines
    KPRD_Data* FindFolderOf (const KPRD_Data* item) const; ///< open or closed; null for what lies in none

    // The cursor: an entry of the collection, also while its folder is closed
    void SetCursorItem (KPRD_Data* item) { cursor = item; } ///< null: none
    KPRD_Data* GetCursorItem () const { return cursor; }
    KPRD_Data* GetSelectedItem () const;                    ///< the cursor if that is a file, else null
    bool IsCurrentSelection () const;                       ///< the cursor is on the set that was chosen last
    void MoveCursor (std::int32_t lines, bool stopsAtEnds); ///< past an end: to the last line there, or not at all
    void ShowCurrent (); ///< puts the cursor on the set that was chosen last, opens its folder and scrolls there

    // Scrolling. @return whether the lines in sight are to be drawn anew
    std::int32_t GetTop () const { return top; } ///< the first line in sight
    void SetTop (std::int32_t index);            ///< limited to where the lines fill the list
    std::int32_t LastTop () const { return Count () - rows; }
    bool IsLongerThanSight () const { return Count () > rows; }
    bool ScrollToTop ();
    bool ScrollToEnd ();
    bool ScrollBy (std::int32_t lines);
    void ScrollToSelection (); ///< centres the cursor unless it is in sight

    void ToggleFolder (KPRD_Data* item); ///< leaves no blank lines while there are others; nothing for a file

private:
    KPRD_Manager* manager = nullptr; // not owned: the storage's
    KPRD_Data* cursor = nullptr;     // not owned: the collection's, which never changes
    std::int32_t rows = 0;
    std::int32_t top = 0;
};

} // namespace tessaly
