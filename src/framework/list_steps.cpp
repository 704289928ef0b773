#include "list_steps.h"

#include "truncate.h"
#include <algorithm>

namespace tessaly
{

namespace
{

std::int32_t EntryCount (float step)
{
    return step > 0.0f ? Truncate (1.0 / static_cast<double> (step) + 0.5) : 0;
}

} // namespace

std::int32_t NormalizedToInt (float normalized, float step)
{
    const auto count = EntryCount (step);
    if (count < 2)
        return 0;
    return std::clamp (Truncate (count * static_cast<double> (normalized)), 0, count - 1);
}

float IntToNormalized (std::int32_t entry, float step)
{
    const auto count = EntryCount (step);
    if (count < 2)
        return 0.0f;
    return static_cast<float> (std::clamp (static_cast<double> (entry) / (count - 1), 0.0, 1.0));
}

} // namespace tessaly
