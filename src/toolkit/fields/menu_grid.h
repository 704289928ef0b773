#pragma once

#include "geometry.h"
#include <cstdint>
#include <span>
#include <vector>

namespace tessaly
{

/// Where the items of a menu lie: columns from left to right, each filled from the top, each as wide as its widest
/// item. Rectangles are in root coordinates.
class ZMenuGrid
{
public:
    struct Measures
    {
        std::int32_t rows = 0;      // items a column; 0 or less: a single column
        std::int32_t rowHeight = 1; // pixels
        std::int32_t border = 0;    // around all items
    };

    void Clear ();

    /// Lays items of these widths out at a point, then moves them into the bounds. A column that is higher than those
    /// goes on in the next one; columns that are wider together become narrower. Zero bounds are none.
    void Lay (std::span<const std::int32_t> widths, const Measures& measures, const ZRect& bounds, ZPoint at,
              bool centered);

    ZRect GetRect () const { return rect; } ///< of the whole; zero while there are no items
    std::int32_t GetCount () const { return static_cast<std::int32_t> (items.size ()); }
    std::int32_t GetRows () const { return rows; } ///< items a full column
    const ZRect& GetItem (std::int32_t index) const { return items[static_cast<std::size_t> (index)]; } ///< in range
    std::int32_t ItemAt (ZPoint point) const;                                                           ///< -1: none

private:
    std::vector<ZRect> items;
    ZRect rect;
    std::int32_t rows = 0;
};

} // namespace tessaly
