#include "level_detector.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

double LevelDetector::detectLevel (double u, double attackCoef, double releaseCoef)
{
    constexpr double kFloorLinear = 0.0316;
    constexpr double kFloor = -1.5;
    constexpr double kOffset = 0.00018;

    const double m = std::abs (u);
    const double L = m >= kFloorLinear ? std::log10 (m) : kFloor;
    const double D = L - detectorLevel;
    const double A = attackCoef * 6.25;
    const double r = std::sqrt (kOffset / A);
    if (D > 0)
    {
        const double s = r + D;
        detectorLevel += std::min (A * s * s - kOffset, 0.925 * D);
    }
    else
    {
        const double s = std::max (r + 0.125 * D, 0.0);
        detectorLevel += std::max (8 * (A * s * s - kOffset), -0.4 * releaseCoef);
    }
    return detectorLevel;
}

} // namespace tessaly
