#pragma once

#include "biquad.h"

namespace tessaly
{

// Coefficients of the strip's bands: bilinear designs of analogue prototypes, t = tan (pi f / sampleRate). A boost and
// the cut of equal size are exact inverses; 0 dB is flat. Pure functions, any thread.
//
//     sampleRate  Hz, above 0        f       Hz, above 0 and below half the rate
//     gainDb      dB, either sign    slope   exponent of the law by which the corner or width moves with the gain
//     maxDb       dB, the gain at which a shelf's corner and a peak's width are the plain ones of `f` and `q`
//
// Below 44100 Hz a band whose `f` comes within 10 Hz of half the rate passes through.

/// First-order shelf below `f`: gain at 0 Hz, none at half the rate.
BiquadCoefs designLowShelf (double sampleRate, double f, double gainDb, double slope, double maxDb);

/// First-order shelf above `f`: none at 0 Hz, gain at half the rate.
BiquadCoefs designHighShelf (double sampleRate, double f, double gainDb, double slope, double maxDb);

/// Second-order peak at `f`: gain there, none at 0 Hz and half the rate; the smaller the gain, the wider.
/// @param q  above 0; above a limit of frequency the correctedQ takes its place
BiquadCoefs designPeaking (double sampleRate, double f, double gainDb, double q, double slope, double maxDb);

/// The quality that makes up for the narrowing of a peak by the bilinear transform near the top of the spectrum.
/// @return `q`, or less where the correction acts, and then at least 0.1
double correctedQ (double sampleRate, double f, double q);

} // namespace tessaly
