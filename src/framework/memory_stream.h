#pragma once

#include "stream.h"

namespace tessaly
{

/// A stream over a buffer of the caller's. A seek beyond either end lands on that end.
class ZMemoryStream : public ZStream
{
public:
    /// @param memory    not owned: the caller's, outlives the stream
    /// @param capacity  bytes of it  @param size  how many of them are there to be read
    ZMemoryStream (void* memory, std::int32_t capacity, std::int32_t size = 0);

    std::int32_t Read (void* data, std::int32_t count) override;
    std::int32_t Write (const void* data, std::int32_t count) override; ///< as much as there is room for
    std::int32_t Seek (std::int32_t offset, std::int32_t mode) override;
    std::int32_t Tell () override { return position; }
    std::int32_t GetSize () override { return size; }

protected:
    /// The next bytes, up to `count` and the end, and moves past them. @return their count; 0 with `data` null
    std::int32_t Take (const std::uint8_t*& data, std::int32_t count);

private:
    std::uint8_t* buffer; // not owned: the caller's
    std::int32_t capacity;
    std::int32_t size;
    std::int32_t position = 0;
};

} // namespace tessaly
