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
    chord = rise * r;
    fastestFall = std::max (-8 * kOffset, -0.4 * releaseCoef);
}

void LevelDetector::gather (Recursions& r) const
{
    r.rise = rise;
    r.fall = fall;
    r.approach = approach;
    r.chord = chord;
    r.fastestFall = fastestFall;
    r.detected = detectorLevel;
}

} // namespace tessaly
