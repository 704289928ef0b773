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

TEST_CASE ("Equalizer design: shelves reach their gain at one end, a peak at its frequency, and none elsewhere")
{
    for (const double gainDb : { -18.0, -3.0, 0.0, 6.0, 18.0 })
    {
        const BiquadCoefs low = designLowShelf (kRate, 200, gainDb, 0.32, 18);
        CHECK (atDb (low, 0) == Approx (gainDb));
        CHECK (atDb (low, kRate / 2) == Approx (0.0));
        const BiquadCoefs high = designHighShelf (kRate, 5000, gainDb, 0.32, 18);
        CHECK (atDb (high, 0) == Approx (0.0));
        CHECK (atDb (high, kRate / 2) == Approx (gainDb));
        const BiquadCoefs peak = designPeaking (kRate, 1000, gainDb, 2.0, 0.70, 18);
        CHECK (atDb (peak, 1000) == Approx (gainDb));
        CHECK (atDb (peak, 0) == Approx (0.0));
    }
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
