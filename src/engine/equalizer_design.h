#pragma once

#include "biquad.h"

namespace tessaly
{

// Coefficients of the strip's bands: analogue prototypes taken over by the bilinear transform, s = (1 - 1/z) / (1 + 1/z),
// with prewarped frequencies, t = tan (pi f / sampleRate), so that f lies where it is asked for (shelving and peak filters:
// U. Zölzer, "DAFX: Digital Audio Effects", 2nd edition, chapter 2). How the corner
// and the width move with the gain is a law of this strip. With G = 10^(|gainDb|/20) and M = 10^(maxDb/20), for a boost:
//
//     low shelf    H(s) = (s + W) / (s + W/G)                        W = M^slope G^(1-slope) t
//     high shelf   H(s) = (G s + V) / (s + V)                        V = (G/M)^slope t
//     peak         H(s) = (s^2 + G B s + t^2) / (s^2 + B s + t^2)    B = (M/G)^slope t / Q
//
// A cut is 1/H of the boost of equal size; 0 dB is flat. Pure functions, any thread.
//
//     sampleRate  Hz, above 0        f       Hz, above 0 and below half the rate
//     gainDb      dB, either sign    slope   the exponent above
//     maxDb       dB, the gain at which a high shelf's corner and a peak's width are the plain ones of `f` and `q`
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
