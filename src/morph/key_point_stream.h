#pragma once

#include "memory_stream.h"

namespace tessaly
{

/// A key-point file in memory. Its numbers have their highest byte first; a read gives its bytes in reversed
/// order, so that a plain read of a number's width gives the number on a machine of the other order.
class KPDStream final : public ZMemoryStream
{
public:
    static constexpr std::int32_t kLongestRead = 256; // bytes; more are cut

    /// @param data  not owned: the caller's, outlives the stream; only read
    KPDStream (const void* data, std::int32_t dataSize);

    std::int32_t Read (void* data, std::int32_t count) override;
};

} // namespace tessaly
