#pragma once

#include "result.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessaly
{

/// The parameter points of one block, in the order of arrival. Audio thread. Allocates only when more points come than
/// were reserved.
class ZParameterQueue
{
public:
    std::int32_t Reserve (std::int32_t count); ///< @return kOk, or kFailed when the memory is not to be had
    void Clear () { points.clear (); }

    /// @param sampleOffset  place in the block, samples
    /// @param id            index of the parameter
    /// @param value         normalized
    /// @return kOk
    std::int32_t Add (std::int32_t sampleOffset, std::uint32_t id, float value)
    {
        points.push_back ({ sampleOffset, id, value });
        return kOk;
    }

    std::int32_t GetCount (std::int32_t* count) const ///< @return kOk; kFailed for null
    {
        if (count == nullptr)
            return kFailed;
        *count = static_cast<std::int32_t> (points.size ());
        return kOk;
    }

    /// Copies out one point. @return kOk; kFailed, with nothing written, for an index out of range
    std::int32_t GetPoint (std::int32_t index, std::int32_t* sampleOffset, std::uint32_t* id, float* value) const
    {
        if (index < 0 || static_cast<std::size_t> (index) >= points.size ())
            return kFailed;
        const auto& point = points[static_cast<std::size_t> (index)];
        *sampleOffset = point.sampleOffset;
        *id = point.id;
        *value = point.value;
        return kOk;
    }

private:
    struct Point
    {
        std::int32_t sampleOffset;
        std::uint32_t id;
        float value;
    };

    std::vector<Point> points;
};

} // namespace tessaly
