#include "parameter_queue.h"

#include "result.h"
#include <algorithm>
#include <new>

namespace tessaly
{

std::int32_t ZParameterQueue::Reserve (std::int32_t count)
{
    try
    {
        points.reserve (static_cast<std::size_t> (std::max (count, 0)));
        return kOk;
    }
    catch (const std::bad_alloc&)
    {
        return kFailed;
    }
}

void ZParameterQueue::Clear ()
{
    points.clear ();
}

std::int32_t ZParameterQueue::Add (std::int32_t sampleOffset, std::uint32_t id, float value)
{
    points.push_back ({ sampleOffset, id, value });
    return kOk;
}

std::int32_t ZParameterQueue::GetCount (std::int32_t* count) const
{
    if (count == nullptr)
        return kFailed;
    *count = static_cast<std::int32_t> (points.size ());
    return kOk;
}

std::int32_t ZParameterQueue::GetPoint (std::int32_t index, std::int32_t* sampleOffset, std::uint32_t* id,
                                        float* value) const
{
    if (index < 0 || static_cast<std::size_t> (index) >= points.size ())
        return kFailed;
    const auto& point = points[static_cast<std::size_t> (index)];
    *sampleOffset = point.sampleOffset;
    *id = point.id;
    *value = point.value;
    return kOk;
}

} // namespace tessaly
