#pragma once

#include <cmath>
#include <complex>
#include <numbers>

namespace tessaly
{

/// Magnitude of a running filter at a frequency, linear, from the Fourier sum over its impulse response.
/// @param process  one sample in, one out; its response must have died away within 2^16 samples
template <typename Process>
double measuredGain (Process process, double sampleRate, double frequency)
{
    const double w = 2 * std::numbers::pi * frequency / sampleRate;
    std::complex<double> sum = 0.0;
    for (int n = 0; n < 1 << 16; ++n)
        sum += double (process (n == 0 ? 1.0 : 0.0)) * std::polar (1.0, -w * n);
    return std::abs (sum);
}

/// One sample through a stage that works in place.
template <typename Stage>
double oneSample (Stage& stage, double x)
{
    stage.process (&x, 1);
    return x;
}

} // namespace tessaly
