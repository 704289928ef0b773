#include "glide.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

GlideLaw::GlideLaw (double sampleRate)
{
    constexpr double kSeconds = 0.01;
    constexpr double kLandingStep = 0.00000012;
    const double coef = 1 - std::exp (-1 / sampleRate / kSeconds);
    beyond = kLandingStep / coef;
    double power = 1.0;
    for (double& each : left)
        each = power *= 1 - coef;
}

void Glide::fill (double* values, std::size_t count, double target, const GlideLaw& law)
{
    if (count == 0)
        return;
    if (hasLanded (target))
    {
        std::fill_n (values, count, target);
        return;
    }
    const double direction = target > current ? 1.0 : -1.0;
    const double beyond = law.beyond;
    const auto left = law.left;
    double distance = std::abs (target - current) + beyond;
    const auto value = [&] (std::size_t lane)
    { return target - direction * std::max (distance * left[lane] - beyond, 0.0); };
    std::size_t i = 0;
    for (; i + GlideLaw::kLanes <= count; i += GlideLaw::kLanes)
    {
        for (std::size_t lane = 0; lane < GlideLaw::kLanes; ++lane)
            values[i + lane] = value (lane);
        distance *= left.back ();
    }
    for (std::size_t lane = 0; i < count; ++lane, ++i)
        values[i] = value (lane);
    current = values[count - 1];
}

} // namespace tessaly
