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
    blockMath ().glide (values, count, current, target, law.beyond, law.left.data ());
    current = values[count - 1];
}

} // namespace tessaly
