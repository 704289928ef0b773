#include "gain_computer.h"

#include <cmath>

namespace tessaly
{

std::uint16_t effectiveKnee (double thresholdDb, std::uint16_t knee)
{
    return thresholdDb == 0.0 ? std::uint16_t{ kHardKnee } : knee;
}

KneeCurve kneeCurve (std::uint16_t knee)
{
    switch (knee)
    {
    case kSoftKnee:
        return { 1.3, 0.19231 };
    case kMiddleKnee:
        return { 0.5, 0.5 };
    default:
        return { 0.0, 0.0 };
    }
}

double shapedLevel (double level, std::uint16_t knee)
{
    const auto [halfWidth, curvature] = kneeCurve (knee);
    if (level > halfWidth)
        return level;
    if (level <= -halfWidth)
        return 0.0;
    const double intoKnee = level + halfWidth;
    return curvature * (intoKnee * intoKnee);
}

double compressionGain (double shaped, double slope)
{
    return shaped > 0 ? std::pow (10.0, -slope * shaped) : 1.0;
}

} // namespace tessaly
