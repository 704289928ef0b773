#pragma once

#include "stream.h"
#include <algorithm>
#include <cstdint>

namespace tessaly
{

/// Where a seek within `size` bytes ends: on the nearest end if it goes beyond. An unknown mode counts from the start.
inline std::int32_t SeekPosition (std::int32_t offset, std::int32_t mode, std::int32_t position, std::int32_t size)
{
    const std::int64_t origin = mode == kSeekFromHere ? position : mode == kSeekFromEnd ? size : 0;
    return static_cast<std::int32_t> (std::clamp<std::int64_t> (origin + offset, 0, size));
}

} // namespace tessaly
