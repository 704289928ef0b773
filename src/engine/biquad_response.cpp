#include "biquad_response.h"

#include <cmath>
#include <complex>
#include <numbers>

namespace tessaly
{

double responseDb (const BiquadCoefs& c, double frequency, double sampleRate)
{
    constexpr double kNothingDb = -100.0;
    const std::complex<double> z = std::polar (1.0, 2 * std::numbers::pi * frequency / sampleRate);
    const std::complex<double> H = (c.c0 + c.c1 / z + c.c2 / (z * z)) / (1.0 - c.c3 / z - c.c4 / (z * z));
    const double power = std::norm (H);
    return power > 0 ? 10 * std::log10 (power) : kNothingDb;
}

} // namespace tessaly
