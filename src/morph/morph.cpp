#include "morph.h"

#include "step_ranges.h"
#include "truncate.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr double kPositionsPerRow = 15.0;
constexpr double kLastPosition = StepsOf (StripParameter::morph).last;
constexpr std::int32_t kLastRow = static_cast<std::int32_t> (kKeyPointRows) - 1;

bool IsFilled (const KeyPointSet& set, std::int32_t row)
{
    return row >= 0 && set.HasKeyPoint (static_cast<std::uint32_t> (row));
}

std::int32_t FilledDownFrom (const KeyPointSet& set, std::int32_t row)
{
    while (row >= 0 && !IsFilled (set, row))
        --row;
    return row;
}

std::int32_t FilledUpFrom (const KeyPointSet& set, std::int32_t row)
{
    while (row < kLastRow && !IsFilled (set, row))
        ++row;
    return row;
}

KeyPointRow Between (const KeyPointRow& lower, const KeyPointRow& upper, double fraction)
{
    KeyPointRow steps;
    for (std::size_t j = 0; j < steps.size (); ++j)
        steps[j] = static_cast<std::int16_t> (lower[j] + fraction * (upper[j] - lower[j])); // fits: between two that do
    return steps;
}

} // namespace

std::optional<KeyPointRow> MorphedSteps (const KeyPointSet& set, float position)
{
    const auto place = std::clamp (static_cast<double> (position), 0.0, kLastPosition) / kPositionsPerRow;
    const auto row = TruncateToInt16 (place);
    const auto fraction = place - row;
    const auto lower = FilledDownFrom (set, row);
    const auto upper = FilledUpFrom (set, row + 1);

    const bool hasLower = IsFilled (set, lower);
    const bool hasUpper = IsFilled (set, upper);
    const auto& rows = set.rows;
    if (hasLower && hasUpper && fraction != 0.0)
        return Between (rows[static_cast<std::size_t> (lower)], rows[static_cast<std::size_t> (upper)], fraction);
    if (hasLower)
        return rows[static_cast<std::size_t> (lower)];
    if (hasUpper)
        return rows[static_cast<std::size_t> (upper)];
    return std::nullopt;
}

} // namespace tessaly
