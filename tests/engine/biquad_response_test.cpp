#include "biquad_response.h"

#include <cmath>
#include <doctest/doctest.h>
#include <initializer_list>
#include <numbers>

using namespace tessaly;
using doctest::Approx;

namespace
{

/// Level of a sine that has run through the section until it rings no more.
double measuredDb (const BiquadCoefs& coefs, double frequency, double rateHz)
{
    const double step = 2 * std::numbers::pi * frequency / rateHz;
    BiquadState state{};
    for (int i = 0; i < 4000; ++i)
        throughSecondOrder (coefs, state, std::sin (i * step));
    const double now = state.s2; // amplitude from two neighbours, a sin (p) and a sin (p - step)
    const double last = state.s3;
    const double quadrature = (now * std::cos (step) - last) / std::sin (step);
    return 20 * std::log10 (std::hypot (now, quadrature));
}

} // namespace

TEST_CASE ("responseDb is the level at which a section lets a sine through")
{
    const BiquadCoefs coefs{ 0.3, -0.5, 0.2, 1.1, -0.6 }; // poles at 0.77, all five terms at work
    for (const double frequency : { 100.0, 1000.0, 7000.0, 20000.0 })
        CHECK (responseDb (coefs, frequency, 48000) == Approx (measuredDb (coefs, frequency, 48000)).epsilon (1e-9));
}

TEST_CASE ("responseDb of silence is -100")
{
    CHECK (responseDb ({}, 1000, 48000) == -100.0);
}
