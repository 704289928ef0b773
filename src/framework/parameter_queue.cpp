#include "parameter_queue.h"

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

} // namespace tessaly
