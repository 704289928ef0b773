#include "level_detector.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

void LevelDetector::setTimes (double attackCoef, double releaseCoef)
{
    constexpr double kOffset = 0.00018;
    if (attackCoef == attack && releaseCoef == release)
        return;
    attack = attackCoef;
    release = releaseCoef;
    rise = attackCoef * 6.25;
    fall = rise / 8;
    const double r = std::sqrt (kOffset / rise);
    approach = 2 * rise * r;
    deepest = -8 * r;
    fastestFall = -0.4 * releaseCoef;
}

void LevelDetector::follow (double* levels, std::size_t count)
{
    constexpr double kLargestRise = 0.925; // of the distance
    const double a = rise;
    const double b = approach;
    const double c = fall;
    const double floor = deepest;
    const double limit = fastestFall;
    double detected = detectorLevel;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double D = levels[i] - detected;
        if (D > 0)
        {
            detected += D * std::min (a * D + b, kLargestRise);
        }
        else
        {
            const double d = std::max (D, floor);
            detected += std::max (d * (c * d + b), limit);
        }
        levels[i] = detected;
    }
    detectorLevel = detected;
}

} // namespace tessaly
