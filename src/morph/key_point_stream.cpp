#include "key_point_stream.h"

#include <algorithm>

namespace tessaly
{

// The base can write as well, so it takes plain memory.
KPDStream::KPDStream (const void* data, std::int32_t dataSize)
    : ZMemoryStream (const_cast<void*> (data), dataSize, dataSize)
{
}

std::int32_t KPDStream::Read (void* data, std::int32_t count)
{
    const std::uint8_t* bytes = nullptr;
    const auto taken = Take (bytes, std::min (count, kLongestRead));
    std::reverse_copy (bytes, bytes + taken, static_cast<std::uint8_t*> (data));
    return taken;
}

} // namespace tessaly
