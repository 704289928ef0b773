#include "typed_step.h"

#include "typed_number.h"

#include "value_scales.h"

#include <cmath>

namespace tessaly::keypoints
{

std::optional<double> TypedStep (std::int32_t parameter, std::string_view text, const ShownRange& range)
{
    const auto number = TypedNumber (text, range.unit);
    const auto first = TypedNumber (range.first, range.unit);
    const auto last = TypedNumber (range.last, range.unit);
    if (!number || !first || !last || *number < *first || *number > *last)
        return std::nullopt;
    return static_cast<double> (valueToStep (static_cast<std::uint32_t> (parameter), *number));
}

std::optional<double> TypedLinearStep (std::string_view text, double shownLast, double lastStep)
{
    const auto number = TypedNumber (text, "");
    if (!number || *number < 0.0 || *number > shownLast)
        return std::nullopt;
    return std::round (*number / shownLast * lastStep);
}

} // namespace tessaly::keypoints
