#pragma once

#include "biquad.h"

namespace tessaly
{

/// Magnitude of a section's response at a frequency, dB; -100 where nothing passes.
///     20 log10 |H(z)|,   H(z) = (c0 + c1/z + c2/z^2) / (1 - c3/z - c4/z^2),   z = exp (2 pi i frequency / sampleRate)
/// @param frequency, sampleRate  Hz
double responseDb (const BiquadCoefs& coefs, double frequency, double sampleRate);

} // namespace tessaly
