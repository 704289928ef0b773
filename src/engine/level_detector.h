#pragma once

namespace tessaly
{

/// Detector of the compressor: follows the logarithm of the level relative to the threshold. Levels are log10 of an
/// amplitude ratio, so 1.0 is 20 dB and 0.0 the threshold. With D the distance to the input's level,
/// A = 6.25 attackCoef and r = sqrt (0.00018 / A), one sample moves it by
///     rising   min (A (r + D)^2 - 0.00018, 0.925 D)
///     falling  max (8 (A max (r + D/8, 0)^2 - 0.00018), -0.4 releaseCoef)
/// The rise grows with the square of the distance. The fall runs at 8 dB per release time, and lands softly by the
/// attack's curve. The 0.00018 is a step per sample at every rate. Audio thread.
class LevelDetector
{
public:
    /// @param u             side-chain sample over the threshold, linear
    /// @param attackCoef    1 / (attack time in samples), above 0, at most 1
    /// @param releaseCoef   likewise
    /// @return the new level, -1.5 and up: the detector sees nothing more than 30 dB below the threshold
    double detectLevel (double u, double attackCoef, double releaseCoef);

private:
    double detectorLevel = -1.5;
};

} // namespace tessaly
