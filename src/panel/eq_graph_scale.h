#pragma once

#include "geometry.h"
#include <cstdint>

namespace tessaly
{

/// The axes of the EQ graph over a plot: frequency to the right, logarithmic, from 20 Hz in the first column to 20 kHz in
/// the last; gain upwards, linear, from -20 dB in the last row to +20 dB in the first. Coordinates are those of the plot;
/// what lies beyond the ends of an axis lies beyond the plot.
class EqGraphScale
{
public:
    static constexpr double kLowestGain = -20.0; // dB
    static constexpr double kHighestGain = 20.0;
    static constexpr double kLowestFrequency = 20.0; // Hz
    static constexpr double kHighestFrequency = 20000.0;

    void SetPlot (const ZRect& rect) { plot = rect; }
    const ZRect& Plot () const { return plot; }

    double GainToYExact (double gainDb) const;
    std::int32_t GainToY (double gainDb) const; ///< rounded half away from zero
    double PixelToGainExact (double y) const;   ///< dB

    std::int32_t FreqToX (double hz) const; ///< rounded half away from zero
    double XToFreqExact (double x) const;   ///< Hz
    double XToFreq (double x) const;        ///< Hz, limited to the ends of the axis

private:
    ZRect plot;
};

} // namespace tessaly
