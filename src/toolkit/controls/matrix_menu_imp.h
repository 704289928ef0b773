#pragma once

#include "overlay_imp.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly
{

class ZMatrixMenu;

struct ZMatrixMenuItem
{
    std::string text; // UTF-8, at most 255 bytes; an ampersand is an ampersand
    bool checked = false;
    bool enabled = true;
};

/// Where a menu opens. What is none of these is where the press was.
enum MenuPlacement : std::int32_t
{
    kAtLeftTop = 1,
    kAtLeftBottom = 2,
    kAtRightTop = 3,
    kAtRightBottom = 4,
    kCenteredAtTop = 5,
    kCenteredAtBottom = 6
};

/// The items of a ZMatrixMenu and what is selected of them; a back end shows them. Indices beyond the items do nothing
/// and read as false or empty.
///
/// Open shows the menu at GetOpenPoint, which is its top left or, with the two centred placements, the middle of its
/// upper edge; a new column begins before every item whose position is a multiple of the rows. A picked item becomes
/// the selected one, then the control's CloseModal (true) is called; a dismissed menu calls CloseModal (false).
class ZMatrixMenuImp : public ZOverlayImp
{
public:
    void SetControl (ZMatrixMenu* menu) { control = menu; }
    bool HidesControl () const override { return false; }

    void InsertItem (std::int32_t index, std::string_view text); ///< an index outside of the items appends
    void AddItem (std::string_view text) { InsertItem (-1, text); }
    bool RemoveItem (std::int32_t index); ///< a selection that is no item any more goes, too
    void RemoveAllItems ();
    void ReserveItems (std::int32_t count);
    std::int32_t GetItemCount () const { return static_cast<std::int32_t> (items.size ()); }

    void SetSelected (std::int32_t index) { selected = IsItem (index) ? index : -1; }
    std::int32_t GetSelected () const { return selected; } ///< -1: none
    void SetRows (std::int32_t itemsPerColumn) { rows = itemsPerColumn; }
    std::int32_t GetRows () const { return rows; } ///< items a column; 0 for a single column
    void SetPlacement (std::int32_t newPlacement) { placement = newPlacement; }
    std::int32_t GetPlacement () const { return placement; }

    bool SetSelectedText (std::string_view text) { return SetItemText (selected, text); }
    std::string GetSelectedText () const { return GetItemText (selected); }
    bool SetItemText (std::int32_t index, std::string_view text);
    std::string GetItemText (std::int32_t index) const;
    void SetItemChecked (std::int32_t index, bool on);
    void SetAllChecked (bool on);
    void CheckOnly (std::int32_t index); ///< and no other; none for a bad index
    bool IsItemChecked (std::int32_t index) const;
    void SetItemEnabled (std::int32_t index, bool on);
    void SetAllEnabled (bool on);
    bool IsItemEnabled (std::int32_t index) const;

    virtual bool Open (ZEvent& event, const ZMouseInput& mouse) = 0; ///< true: it is open now, and was not before
    virtual bool Close (bool commit) = 0;                            ///< @return false

    /// In root coordinates, by placement. @param point  of the press, in the coordinates of the control's handlers
    ZPoint GetOpenPoint (ZPoint point) const;
    bool IsCentered () const { return placement == kCenteredAtTop || placement == kCenteredAtBottom; }

protected:
    bool IsItem (std::int32_t index) const { return index >= 0 && index < GetItemCount (); }
    ZMatrixMenuItem& Item (std::int32_t index) { return items[static_cast<std::size_t> (index)]; }
    const ZMatrixMenuItem& Item (std::int32_t index) const { return items[static_cast<std::size_t> (index)]; }

    ZMatrixMenu* control = nullptr; // not owned: owns this

private:
    std::int32_t selected = -1;
    std::int32_t rows = 0;
    std::int32_t placement = kAtRightBottom;
    std::vector<ZMatrixMenuItem> items;
};

} // namespace tessaly
