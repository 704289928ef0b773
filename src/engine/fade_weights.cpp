#include "fade_weights.h"

#include <algorithm>
#include <numbers>

namespace tessaly
{

const double* FadeWeights::row (std::int32_t samplesDone, double fadeLength)
{
    constexpr double kSteepness = 10 / std::numbers::ln2; // exp (-10 x) = 2^(-kSteepness x)
    const auto* known = std::find (beginnings, beginnings + rowCount, samplesDone);
    const auto index = static_cast<std::size_t> (known - beginnings);
    if (index < rowCount)
        return rows[index];
    beginnings[index] = samplesDone;
    math.logistic (rows[index], kSteepness * (samplesDone / fadeLength - 0.5), kSteepness / fadeLength, count);
    ++rowCount;
    return rows[index];
}

} // namespace tessaly
