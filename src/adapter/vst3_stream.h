#pragma once

#include "pluginterfaces/base/ibstream.h"
#include "pluginterfaces/base/smartpointer.h"
#include "stream.h"

namespace tessaly
{

/// A host's stream. What it answers is not to be relied on: counts are brought into their range, positions beyond int32
/// land on its ends.
class ZVst3Stream final : public ZStream
{
public:
    explicit ZVst3Stream (Steinberg::IBStream* hostStream)
        : stream (hostStream)
    {
    }

    std::int32_t Read (void* data, std::int32_t count) override;
    std::int32_t Write (const void* data, std::int32_t count) override;
    std::int32_t Seek (std::int32_t offset, std::int32_t mode) override; ///< where it stays if the host refuses
    std::int32_t Tell () override;
    std::int32_t GetSize () override;

private:
    Steinberg::IPtr<Steinberg::IBStream> stream;
};

} // namespace tessaly
