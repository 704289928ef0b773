#pragma once

#include "geometry.h"
#include <array>
#include <cstddef>
#include <span>

namespace tessaly
{

/// Where a surface has changed, in pixels: a few rectangles that cover all of it. Rectangles that meet become one, and
/// so do the last two when there would be more than kMost; no allocation.
class ChangedArea
{
public:
    static constexpr std::size_t kMost = 16;

    void Add (ZRect rect); ///< an empty one adds nothing
    std::span<const ZRect> Rects () const& { return { rects.data (), count }; }
    std::span<const ZRect> Rects () const&& = delete; // they would go with it

private:
    std::array<ZRect, kMost> rects{};
    std::size_t count = 0;
};

} // namespace tessaly
