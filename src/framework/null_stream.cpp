#include "null_stream.h"

#include "stream_position.h"
#include <limits>

namespace tessaly
{

std::int32_t ZNullStream::Read (void* /*data*/, std::int32_t count)
{
    position += std::clamp (count, 0, size - position);
    return 0;
}

std::int32_t ZNullStream::Write (const void* /*data*/, std::int32_t count)
{
    if (count < 1)
        return 0;
    position += std::min (count, std::numeric_limits<std::int32_t>::max () - position);
    size = std::max (size, position);
    return count;
}

std::int32_t ZNullStream::Seek (std::int32_t offset, std::int32_t mode)
{
    return position = SeekPosition (offset, mode, position, size);
}

} // namespace tessaly
