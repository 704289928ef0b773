#include "equalizer_design.h"

#include "biquad_response.h"

#include <cmath>
#include <doctest/doctest.h>
#include <initializer_list>
#include <numbers>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr double kRate = 48000;

double atDb (const BiquadCoefs& coefs, double frequency, double rate = kRate)
{
    return responseDb (coefs, frequency, rate);
}

} // namespace

TEST_CASE ("Equalizer design: shelves reach their gain at one end and none at the other")
{
    for (const double gainDb : { -18.0, -3.0, 0.0, 6.0, 18.0 })
    {
        const BiquadCoefs low = designLowShelf (kRate, 200, gainDb, 0.32, 18);
        CHECK (atDb (low, 0) == Approx (gainDb));
        CHECK (atDb (low, kRate / 2) == Approx (0.0));
        const BiquadCoefs high = designHighShelf (kRate, 5000, gainDb, 0.32, 18);
        CHECK (atDb (high, 0) == Approx (0.0));
        CHECK (atDb (high, kRate / 2) == Approx (gainDb));
    }
}

TEST_CASE ("Equalizer design: a peak reaches its gain at its frequency")
{
    for (const double gainDb : { -18.0, -3.0, 0.0, 6.0, 18.0 })
    {
        const BiquadCoefs peak = designPeaking (kRate, 1000, gainDb, 2.0, 0.70, 18);
        CHECK (atDb (peak, 1000) == Approx (gainDb));
        CHECK (atDb (peak, 0) == Approx (0.0));
        CHECK (atDb (peak, kRate / 2) == Approx (0.0));
    }
}

TEST_CASE ("Equalizer design: a cut undoes the boost of equal size at any frequency")
{
    for (const double f : { 0.0, 60.0, 900.0, 1100.0, 7000.0, 23000.0 })
    {
        CHECK (atDb (designLowShelf (kRate, 900, 7, 0.32, 18), f) ==
               Approx (-atDb (designLowShelf (kRate, 900, -7, 0.32, 18), f)));
        CHECK (atDb (designHighShelf (kRate, 900, 7, 0.32, 18), f) ==
               Approx (-atDb (designHighShelf (kRate, 900, -7, 0.32, 18), f)));
        CHECK (atDb (designPeaking (kRate, 900, 7, 3, 0.70, 18), f) ==
               Approx (-atDb (designPeaking (kRate, 900, -7, 3, 0.70, 18), f)));
    }
}

TEST_CASE ("Equalizer design: at full gain a peak's width is that of its quality")
{
    // Where an analogue peak of 18 dB is at half its decibels: t/f and f/t differ by 1/Q, times the root of the gain.
    constexpr double q = 4;
    const double f = 1000;
    const double t = std::tan (std::numbers::pi * f / kRate);
    const double offset = std::pow (10.0, 18.0 / 40) / (2 * q);
    const double upper = std::atan (t * (offset + std::sqrt (1 + offset * offset))) * kRate / std::numbers::pi;
    CHECK (atDb (designPeaking (kRate, f, 18, q, 0.70, 18), upper) == Approx (9.0));
}

TEST_CASE ("Equalizer design: a high shelf of full gain has half its decibels at the root of the gain above its corner")
{
    const double t = std::tan (std::numbers::pi * 1000 / kRate) / std::sqrt (std::pow (10.0, 18.0 / 20));
    CHECK (atDb (designHighShelf (kRate, 1000, 18, 0.32, 18), std::atan (t) * kRate / std::numbers::pi) ==
           Approx (9.0));
}

TEST_CASE ("Equalizer design: a band within 10 Hz of half a low rate passes through")
{
    const auto passes = [] (const BiquadCoefs& c) { return c.c0 == 1.0 && c.c1 == 0.0 && c.c3 == 0.0; };
    for (const auto& [f, passing] : { std::pair (15990.0, false), { 15990.5, true }, { 20000.0, true } })
    {
        CAPTURE (f);
        CHECK (passes (designLowShelf (32000, f, 6, 0.32, 18)) == passing);
        CHECK (passes (designHighShelf (32000, f, 6, 0.32, 18)) == passing);
        CHECK (passes (designPeaking (32000, f, 6, 1, 0.70, 18)) == passing);
    }
    CHECK_FALSE (passes (designHighShelf (44100, 22045, 6, 0.32, 18)));
}

TEST_CASE ("Equalizer design: near the top a corrected Q is its line of frequency and octaves of Q")
{
    struct Row
    {
        double rate, f, q, corrected;
    };
    // By hand from k = a - b log2 q - c f, with a, b and c of the rate.
    for (const auto& [rate, f, q, corrected] :
         { Row{ 44100, 10000, 1, 0.77343 }, Row{ 44100, 2000, 8, 8.0 }, Row{ 44100, 2100, 8, 8.0 },
           Row{ 48000, 10000, 4, 4 * 0.8037 }, Row{ 88200, 10000, 0.5, 0.5 }, Row{ 88200, 20000, 2, 2 * 0.77076 },
           Row{ 96000, 4000, 16, 16.0 }, Row{ 96000, 20000, 16, 16 * 0.71923 },
           Row{ 44100, 22000, 0.2, 0.2 * 0.26526 } })
    {
        CAPTURE (rate);
        CAPTURE (f);
        CHECK (correctedQ (rate, f, q) == Approx (std::max (corrected, 0.1)).epsilon (1e-12));
    }
}
