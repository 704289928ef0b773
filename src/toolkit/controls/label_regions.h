#pragma once

#include "geometry.h"
#include <cstdint>
#include <span>
#include <vector>

namespace tessaly
{

/// Rectangles beside a switch, mostly around the words for its positions: a press on one chooses its position. They are
/// relative to the top left of the switch. Mix-in of the rotary and the slide switch.
class ZLabelRegions
{
public:
    static constexpr std::int32_t kNone = -1;

    virtual ~ZLabelRegions () = default;

    void AddRegion (const ZRect& rect, std::int32_t index) ///< kNone: the number of regions so far
    {
        regions.push_back ({ index == kNone ? static_cast<std::int32_t> (regions.size ()) : index, rect });
    }
    void AddRegions (std::span<const ZRect> rects) ///< for the positions from 0 on
    {
        regions.reserve (regions.size () + rects.size ());
        std::int32_t index = 0;
        for (const auto& rect : rects)
            AddRegion (rect, index++);
    }
    void ClearRegions () { regions.clear (); }

protected:
    /// @return the position of the first region that holds the point, or kNone
    std::int32_t RegionAt (ZPoint relative) const
    {
        for (const auto& region : regions)
            if (region.rect.Contains (relative))
                return region.index;
        return kNone;
    }

private:
    struct Region
    {
        std::int32_t index;
        ZRect rect;
    };
    std::vector<Region> regions; // in the order of adding
};

} // namespace tessaly
