#pragma once

#include "geometry.h"
#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tessaly
{

// A dashed line as it shows, in line widths.
inline constexpr std::int32_t kDash = 3;
inline constexpr std::int32_t kGap = 1;

/// A level or upright line of width 1: the rectangles of its coordinates, the last included.
/// @param onRect  called with the rectangle of each dash; of a solid line, with the only one
template <typename OnRect>
void ForStraightLine (ZPoint from, ZPoint to, bool isDashed, OnRect onRect)
{
    const std::int32_t last = std::max (std::abs (to.x - from.x), std::abs (to.y - from.y));
    const std::int32_t dash = isDashed ? kDash : last + 1;
    const ZPoint step{ (to.x > from.x) - (to.x < from.x), (to.y > from.y) - (to.y < from.y) };
    for (std::int32_t first = 0; first <= last; first += dash + kGap)
    {
        const std::int32_t end = std::min (first + dash - 1, last);
        const ZPoint a{ from.x + step.x * first, from.y + step.y * first };
        const ZPoint b{ from.x + step.x * end, from.y + step.y * end };
        onRect (ZRect{ std::min (a.x, b.x), std::min (a.y, b.y), std::max (a.x, b.x) + 1, std::max (a.y, b.y) + 1 });
    }
}

} // namespace tessaly
