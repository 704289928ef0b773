#pragma once

#include "geometry.h"
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tessaly
{

/// Coordinates beyond this show nothing, and the numbers of drawing libraries overflow.
inline constexpr std::int32_t kFarthestPoint = 100000;

/// The point, or the nearest one that can be drawn.
inline ZPoint Near (ZPoint point)
{
    return { std::clamp (point.x, -kFarthestPoint, kFarthestPoint),
             std::clamp (point.y, -kFarthestPoint, kFarthestPoint) };
}

inline ZRect Near (const ZRect& rect)
{
    const ZPoint topLeft = Near (rect.TopLeft ());
    const ZPoint bottomRight = Near (rect.BottomRight ());
    return { topLeft.x, topLeft.y, bottomRight.x, bottomRight.y };
}

/// NaN goes to the edge on the left or above.
inline ZPointF Near (ZPointF point, ZPoint offset)
{
    constexpr double kFar = kFarthestPoint;
    return { std::fmin (std::fmax (point.x + offset.x, -kFar), kFar),
             std::fmin (std::fmax (point.y + offset.y, -kFar), kFar) };
}

inline bool IsWhole (const ZPointF& point)
{
    return std::trunc (point.x) == point.x && std::trunc (point.y) == point.y;
}

/// @param point  a near one
inline ZPoint Whole (const ZPointF& point)
{
    return { static_cast<std::int32_t> (point.x), static_cast<std::int32_t> (point.y) };
}

/// As large as `rect`, at `from`; what does not fit into the numbers is left out.
inline ZRect AreaAt (ZPoint from, const ZRect& rect)
{
    const auto farEnd = [] (std::int32_t start, std::int32_t first, std::int32_t end)
    {
        return static_cast<std::int32_t> (
            std::min<std::int64_t> (std::int64_t{ start } + end - first, std::numeric_limits<std::int32_t>::max ()));
    };
    return { from.x, from.y, farEnd (from.x, rect.left, rect.right), farEnd (from.y, rect.top, rect.bottom) };
}

} // namespace tessaly
