#pragma once

#include "detector_floor.h"
#include "recursions.h"

namespace tessaly
{

/// Detector of the compressor: follows the logarithm of the level relative to the threshold. Levels are log10 of an
/// amplitude ratio, so 1.0 is 20 dB and 0.0 the threshold. With D the distance to the input's level, A = 6.25
/// attackCoef and r = sqrt (0.00018 / A), one sample moves it by
///     rising   min (A (r + D)^2 - 0.00018, 0.925 D)
///     falling  max (8 (A max (r + D/8, 0)^2 - 0.00018), -0.4 releaseCoef)
/// The rise grows with the square of the distance. The fall runs at 8 dB per release time, and lands softly by the
/// attack's curve. The 0.00018 is a step per sample at every rate.
///
/// Since A r^2 is that 0.00018, the squares come to D (A D + 2 A r) and D (A D / 8 + 2 A r), D not below -8 r: the form
/// used in BlockMath::run, since each sample waits for the one before it and this chain is the shorter. Audio thread.
class LevelDetector
{
public:
    /// @param attackCoef   1 / (attack time in samples), above 0, at most 1
    /// @param releaseCoef  likewise
    void setTimes (double attackCoef, double releaseCoef);

    void gather (Recursions& r) const;
    void scatter (const Recursions& r) { detectorLevel = r.detected; }
    void reset () { detectorLevel = kFloorLevel; }

private:
    double detectorLevel = kFloorLevel;
    double attack = 0.0; // the coefficients that the law was worked out from
    double release = 0.0;
    DetectorLaw law{};
};

} // namespace tessaly
