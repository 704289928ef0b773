#include "memory_stream.h"

#include "stream_position.h"
#include <algorithm>
#include <cstring>

namespace tessaly
{

ZMemoryStream::ZMemoryStream (void* memory, std::int32_t memoryCapacity, std::int32_t validSize)
    : buffer (static_cast<std::uint8_t*> (memory))
    , capacity (memory != nullptr ? std::max (memoryCapacity, 0) : 0)
    , size (std::clamp (validSize, 0, capacity))
{
}

std::int32_t ZMemoryStream::Take (const std::uint8_t*& data, std::int32_t count)
{
    const auto taken = std::min (count, size - position);
    data = nullptr;
    if (taken < 1)
        return 0;
    data = buffer + position;
    position += taken;
    return taken;
}

std::int32_t ZMemoryStream::Read (void* data, std::int32_t count)
{
    const std::uint8_t* bytes = nullptr;
    const auto taken = Take (bytes, count);
    if (taken > 0)
        std::memcpy (data, bytes, static_cast<std::size_t> (taken));
    return taken;
}

std::int32_t ZMemoryStream::Write (const void* data, std::int32_t count)
{
    const auto written = std::min (count, capacity - position);
    if (written < 1)
        return 0;
    std::memcpy (buffer + position, data, static_cast<std::size_t> (written));
    position += written;
    size = std::max (size, position);
    return written;
}

std::int32_t ZMemoryStream::Seek (std::int32_t offset, std::int32_t mode)
{
    return position = SeekPosition (offset, mode, position, size);
}

} // namespace tessaly
