#pragma once

#include "stream.h"

namespace tessaly
{

/// A stream that stores nothing and counts what is written, to measure what a writer would write.
class ZNullStream : public ZStream
{
public:
    std::int32_t Read (void* data, std::int32_t count) override; ///< moves, gives nothing
    std::int32_t Write (const void* data, std::int32_t count) override;
    std::int32_t Seek (std::int32_t offset, std::int32_t mode) override;
    std::int32_t Tell () override { return position; }
    std::int32_t GetSize () override { return size; }

private:
    std::int32_t size = 0;
    std::int32_t position = 0;
};

} // namespace tessaly
