#include "value_index.h"

#include "truncate.h"
#include <algorithm>

namespace tessaly
{

namespace
{

std::int32_t PositionsOf (float step)
{
    return step > 0.0f ? Truncate (1.0f / step + 0.5f) : 0;
}

} // namespace

std::int32_t ValueToIndex (float value, float step)
{
    const auto positions = PositionsOf (step);
    if (positions <= 1)
        return 0;
    const auto scaled = static_cast<float> (positions) * value;
    if (!(scaled > 0.0f)) // no number is the first position, too
        return 0;
    return scaled >= static_cast<float> (positions) ? positions - 1 : static_cast<std::int32_t> (scaled);
}

float IndexToValue (std::int32_t index, float step)
{
    const auto positions = PositionsOf (step);
    if (positions <= 1)
        return 0.0f;
    return std::clamp (static_cast<float> (index) / static_cast<float> (positions - 1), 0.0f, 1.0f);
}

float MoveByPositions (float value, float wanted, float step)
{
    const auto index = ValueToIndex (wanted, step);
    return index == ValueToIndex (value, step) ? value : IndexToValue (index, step);
}

} // namespace tessaly
