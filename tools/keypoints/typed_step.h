#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessaly::keypoints
{

/// How a parameter shows its values: the two ends of its range, and the unit.
struct ShownRange
{
    std::string_view first;
    std::string_view last;
    std::string_view unit; ///< "Hz", "dB", "ms" or empty
};

/// The step nearest to a typed number (TypedNumber), for every parameter that has a scale; all tools read by it. What
/// is beyond the ends as they are shown is refused: on the panel a user sees that the end was taken, here nobody does.
/// "INF" is the last step of a scale that ends in it.
/// @param parameter  index; 0 to 3 and 7 to 17 have a scale
/// @return a step, whole except for "Drive"; nothing for any other text
std::optional<double> TypedStep (std::int32_t parameter, std::string_view text, const ShownRange& range);

/// The step of a typed number on a linear scale from 0 to `shownLast`, which is what the last step shows.
/// @return a whole step; nothing for any other text
std::optional<double> TypedLinearStep (std::string_view text, double shownLast, double lastStep);

} // namespace tessaly::keypoints
