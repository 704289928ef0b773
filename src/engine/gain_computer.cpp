#include "gain_computer.h"

#include <cmath>

namespace tessaly
{

namespace
{

double blendedLevel (double level, double halfWidth, double curvature)
{
    if (level > halfWidth)
        return level;
    if (level <= -halfWidth)
        return 0.0;
    const double intoKnee = level + halfWidth;
    return curvature * (intoKnee * intoKnee);
}

} // namespace

std::uint16_t effectiveKnee (double thresholdDb, std::uint16_t knee)
{
    return thresholdDb == 0.0 ? std::uint16_t{ kHardKnee } : knee;
}

double shapedLevel (double level, std::uint16_t knee)
{
    switch (knee)
    {
    case kSoftKnee:
        return blendedLevel (level, 1.3, 0.19231);
    case kMiddleKnee:
        return blendedLevel (level, 0.5, 0.5);
    default:
        return level > 0 ? level : 0.0;
    }
}

double compressionGain (double shaped, double slope)
{
    return shaped > 0 ? std::pow (10.0, -slope * shaped) : 1.0;
}

} // namespace tessaly
