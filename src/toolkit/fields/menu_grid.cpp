#include "menu_grid.h"

#include <algorithm>

namespace tessaly
{

namespace
{

/// The lowest of a stretch of this length at a wish, kept within bounds; one that is too long begins where they begin.
std::int32_t KeptInside (std::int32_t wish, std::int32_t length, std::int32_t low, std::int32_t high)
{
    return std::max (low, std::min (wish, high - length));
}

/// The widths of columns of so many rows, each that of its widest item.
std::vector<std::int32_t> ColumnWidths (std::span<const std::int32_t> widths, std::size_t rows)
{
    std::vector<std::int32_t> columns;
    for (std::size_t i = 0; i < widths.size (); ++i)
    {
        if (i % rows == 0)
            columns.push_back (1);
        columns.back () = std::max (columns.back (), widths[i]);
    }
    return columns;
}

void Narrow (std::vector<std::int32_t>& columns, std::int32_t room)
{
    const auto each = std::max (room / static_cast<std::int32_t> (columns.size ()), 1);
    for (auto& width : columns)
        width = std::min (width, each);
}

std::int32_t Sum (const std::vector<std::int32_t>& widths)
{
    std::int32_t sum = 0;
    for (const auto width : widths)
        sum += width;
    return sum;
}

} // namespace

void ZMenuGrid::Clear ()
{
    items.clear ();
    rect = {};
    rows = 0;
}

void ZMenuGrid::Lay (std::span<const std::int32_t> widths, const Measures& measures, const ZRect& bounds, ZPoint at,
                     bool centered)
{
    Clear ();
    if (widths.empty ())
        return;
    const auto count = static_cast<std::int32_t> (widths.size ());
    rows = measures.rows > 0 ? std::min (measures.rows, count) : count;
    if (!bounds.IsEmpty ())
        rows = std::clamp ((bounds.Height () - 2 * measures.border) / measures.rowHeight, 1, rows);
    auto columns = ColumnWidths (widths, static_cast<std::size_t> (rows));
    if (!bounds.IsEmpty () && Sum (columns) > bounds.Width () - 2 * measures.border)
        Narrow (columns, bounds.Width () - 2 * measures.border);

    const auto width = Sum (columns) + 2 * measures.border;
    const auto height = rows * measures.rowHeight + 2 * measures.border;
    rect.left = centered ? at.x - width / 2 : at.x;
    rect.top = at.y;
    if (!bounds.IsEmpty ())
    {
        rect.left = KeptInside (rect.left, width, bounds.left, bounds.right);
        rect.top = KeptInside (rect.top, height, bounds.top, bounds.bottom);
    }
    rect.right = rect.left + width;
    rect.bottom = rect.top + height;

    auto left = rect.left + measures.border;
    for (std::int32_t i = 0; i < count; ++i)
    {
        const auto columnWidth = columns[static_cast<std::size_t> (i / rows)];
        const auto top = rect.top + measures.border + i % rows * measures.rowHeight;
        items.push_back ({ left, top, left + columnWidth, top + measures.rowHeight });
        if (i % rows == rows - 1)
            left += columnWidth;
    }
}

std::int32_t ZMenuGrid::ItemAt (ZPoint point) const
{
    const auto found =
        std::find_if (items.begin (), items.end (), [point] (const ZRect& item) { return item.Contains (point); });
    return found == items.end () ? -1 : static_cast<std::int32_t> (found - items.begin ());
}

} // namespace tessaly
