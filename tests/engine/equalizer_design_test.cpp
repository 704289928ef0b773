#include "equalizer_design.h"

#include "biquad_process.h"

#include "measure.h"
#include <algorithm>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

BiquadCoefs lowShelf (double rate, double f, double gain)
{
    return designLowShelf (rate, f, gain, 0.32, 18);
}
BiquadCoefs highShelf (double rate, double f, double gain)
{
    return designHighShelf (rate, f, gain, 0.32, 18);
}
BiquadCoefs peak (double rate, double f, double gain, double q = 1.0)
{
    return designPeaking (rate, f, gain, q, 0.70, 18);
}

double measured (const BiquadCoefs& coefs, double rate, double frequency)
{
    return measuredGain ([&, state = BiquadState{}] (double x) mutable { return processBiquad (coefs, state, x); },
                         rate, frequency);
}

/// The power gain at the frequency whose bilinear image is `factor` times that of f, over the one halfway from no gain
/// to the full one, which marks the corner of a shelf and the edge of a peak.
double powerOverHalfway (const BiquadCoefs& coefs, double rate, double f, double factor, double gain)
{
    const double pi = std::numbers::pi;
    const double at = measured (coefs, rate, std::atan (factor * std::tan (pi * f / rate)) * rate / pi);
    return at * at / ((1 + fromDb (gain) * fromDb (gain)) / 2);
}

} // namespace

TEST_CASE ("Equalizer designs: bands have their gain where they act and none where they do not")
{
    const double f = 1250;
    const Approx none = Approx (1.0).epsilon (1e-9);
    for (const double rate : { 44100.0, 48000.0, 88200.0, 192000.0 })
        for (const double gain : { -18.0, -6.0, 0.1, 18.0 })
        {
            const Approx full = Approx (fromDb (gain)).epsilon (1e-9);
            CHECK (measured (lowShelf (rate, f, gain), rate, 0) == full);
            CHECK (measured (lowShelf (rate, f, gain), rate, rate / 2) == none);
            CHECK (measured (highShelf (rate, f, gain), rate, 0) == none);
            CHECK (measured (highShelf (rate, f, gain), rate, rate / 2) == full);
            CHECK (measured (peak (rate, f, gain), rate, f) == full);
            CHECK (measured (peak (rate, f, gain), rate, 0) == none);
            CHECK (measured (peak (rate, f, gain), rate, rate / 2) == none);
        }
}

TEST_CASE ("Equalizer designs: shelves reach their corner and peaks their width at 18 dB, by a law of the gain before")
{
    const Approx halfway = Approx (1.0).epsilon (1e-9);
    for (const double gain : { 3.0, 9.0, 18.0 })
    {
        const double spread = std::pow (fromDb (18 - gain), 0.32);
        CHECK (powerOverHalfway (lowShelf (48000, 500, gain), 48000, 500, spread, gain) == halfway);
        CHECK (powerOverHalfway (highShelf (48000, 500, gain), 48000, 500, 1 / spread, gain) == halfway);
        for (const double q : { 0.5, 8.0 })
        {
            const double halfWidth = std::pow (fromDb (18 - gain), 0.70) / q / 2;
            const double edge = std::sqrt (1 + halfWidth * halfWidth) - halfWidth;
            CHECK (powerOverHalfway (peak (48000, 1000, gain, q), 48000, 1000, edge, gain) == halfway);
            CHECK (powerOverHalfway (peak (48000, 1000, gain, q), 48000, 1000, 1 / edge, gain) == halfway);
        }
    }
}

TEST_CASE ("Equalizer designs: the cut undoes the boost of equal size, and 0 dB is flat")
{
    const auto worstError = [] (const BiquadCoefs& first, const BiquadCoefs& second)
    {
        BiquadState states[2];
        double worst = 0.0;
        for (int n = 0; n < 2000; ++n)
        {
            const double x = std::sin (0.7 * n * n);
            const double y = processBiquad (second, states[1], processBiquad (first, states[0], x));
            worst = std::max (worst, std::abs (y - x));
        }
        return worst;
    };
    for (const auto design : { lowShelf, highShelf, +[] (double r, double f, double g) { return peak (r, f, g); } })
    {
        CHECK (worstError (design (44100, 20000, 12), design (44100, 20000, -12)) < 1e-10);
        CHECK (worstError (design (44100, 20000, 0), { 1.0 }) < 1e-10);
        CHECK (design (32000, 15990.5, 9).c0 == 1.0); // beyond the spectrum of a low rate: passes through
        CHECK (worstError (design (32000, 15990.5, 9), { 1.0 }) == 0.0);
        CHECK (worstError (design (32000, 15990, 9), { 1.0 }) > 1e-5);
        CHECK (worstError (design (44100, 22045, 9), { 1.0 }) > 1e-5);
    }
}

TEST_CASE ("Equalizer designs: the quality is corrected by the row of the sample rate, never up and never below 0.1")
{
    CHECK (correctedQ (44100, 2000, 1) == 1.0);
    CHECK (correctedQ (44100, 10000, 1) == Approx (0.77343).epsilon (1e-12));
    CHECK (correctedQ (48000, 12000, 2) == Approx (2 * (1.25686 - 0.02143 - 0.49236)).epsilon (1e-12));
    CHECK (correctedQ (88200, 4000, 4) == 4.0);
    CHECK (correctedQ (88200, 18000, 4) == Approx (4 * (1.29486 - 0.0634 - 0.44316)).epsilon (1e-12));
    CHECK (correctedQ (192000, 20000, 0.5) == Approx (0.5 * (1.21531 + 0.02382 - 0.4008)).epsilon (1e-12));
    CHECK (correctedQ (44100, 2120, 0.5) == 0.5);
    CHECK (correctedQ (44100, 20000, 0.11) == 0.1);
}
