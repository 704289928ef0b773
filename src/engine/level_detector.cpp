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
    law.rise = attackCoef * 6.25;
    law.fall = law.rise / 8;
    const double r = std::sqrt (kOffset / law.rise);
    law.approach = 2 * law.rise * r;
    law.chord = law.rise * r;
    law.fastestFall = std::max (-8 * kOffset, -0.4 * releaseCoef);
}

void LevelDetector::gather (Recursions& r) const
{
    r.detector = law;
    r.detected = detectorLevel;
}

} // namespace tessaly
