#include "equalizer_design.h"

#include "filter_model.h"

#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("Equalizer design: each band is its prototype's, at any rate, frequency, gain and quality")
{
    const auto areEqual = [] (const BiquadCoefs& c, const model::Coefficients& m)
    {
        return c.c0 == Approx (m.b0) && c.c1 == Approx (m.b1) && c.c2 == Approx (m.b2) && c.c3 == Approx (-m.a1) &&
               c.c4 == Approx (-m.a2);
    };
    for (const double rate : { 11025.0, 44100.0, 48000.0, 88200.0, 96000.0 })
        for (const double f : { 20.0, 900.0, 5000.0, 5510.0, 20000.0 })
            for (const double gainDb : { -18.0, -3.0, 0.0, 6.0, 18.0 })
            {
                CAPTURE (rate);
                CAPTURE (f);
                CAPTURE (gainDb);
                CHECK (areEqual (designLowShelf (rate, f, gainDb, 0.32, 18), model::LowShelf (rate, f, gainDb)));
                CHECK (areEqual (designHighShelf (rate, f, gainDb, 0.32, 18), model::HighShelf (rate, f, gainDb)));
                for (const double q : { 0.5, 4.0, 16.0 })
                    CHECK (areEqual (designPeaking (rate, f, gainDb, q, 0.70, 18), model::Peak (rate, f, gainDb, q)));
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
