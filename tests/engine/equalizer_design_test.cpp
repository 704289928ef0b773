#include "equalizer_design.h"

#include "biquad_process.h"
#include "measure.h"
#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("Equalizer designs: bands have their gain where they act and none where they do not")
{
    constexpr double f = 1250;
    for (const double rate : { 44100.0, 48000.0, 88200.0, 192000.0 })
        for (const double gain : { -18.0, -6.0, 0.1, 18.0 })
        {
            const auto measured = [rate] (const BiquadCoefs& coefs, double frequency)
            {
                BiquadState state;
                return measuredGain ([&] (double x) { return processBiquad (coefs, state, x); }, rate, frequency);
            };
            const Approx full = Approx (fromDb (gain)).epsilon (1e-9);
            const Approx none = Approx (1.0).epsilon (1e-9);
            const BiquadCoefs low = designLowShelf (rate, f, gain, 0.32, 18);
            CHECK (measured (low, 0) == full);
            CHECK (measured (low, rate / 2) == none);
            const BiquadCoefs high = designHighShelf (rate, f, gain, 0.32, 18);
            CHECK (measured (high, 0) == none);
            CHECK (measured (high, rate / 2) == full);
            const BiquadCoefs peak = designPeaking (rate, f, gain, 1.0, 0.70, 18);
            CHECK (measured (peak, f) == full);
            CHECK (measured (peak, 0) == none);
            CHECK (measured (peak, rate / 2) == none);
        }
}
