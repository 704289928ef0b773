#include "blend_biquad.h"

#include <algorithm>
#include <cmath>
#include <doctest/doctest.h>
#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

/// A section that only multiplies; of two in a crossfade the output tells the weight.
constexpr BiquadCoefs gainOf (double gain)
{
    return { gain, 0.0, 0.0, 0.0, 0.0 };
}

/// A filter alone in the equalizer's middle, whose other bands pass everything.
class FilterUnderTest
{
public:
    FilterUnderTest (const BiquadCoefs& coefs, double rateHz) { filter.startUp (coefs, rateHz); }

    void change (const BiquadCoefs& coefs)
    {
        wanted = coefs;
        isWanted = true;
    }

    std::vector<double> run (std::vector<double> samples)
    {
        for (std::size_t at = 0; at < samples.size ();)
        {
            if (filter.isSteady () && std::exchange (isWanted, false))
                filter.crossfadeTo (wanted);
            const std::size_t count = std::min ({ filter.samplesToGo (), samples.size () - at, kChunkSamples });
            FadeWeights weights (count);
            Recursions r{};
            r.low.live = r.high.live = gainOf (1.0);
            filter.gather (r.mid, weights);
            blockMath ().run (r, nullptr, nullptr, &samples[at], count);
            filter.scatter (r.mid, count);
            at += count;
        }
        return samples;
    }

    BlendBiquad filter;
    BiquadCoefs wanted{};
    bool isWanted = false;
};

} // namespace

TEST_CASE ("BlendBiquad: a crossfade lasts 10 ms along the logistic curve")
{
    for (const double rateHz : { 11025.0, 44100.0, 48000.0, 192000.0 })
    {
        FilterUnderTest test (gainOf (0.0), rateHz);
        test.change (gainOf (1.0));
        const std::vector<double> heard = test.run (std::vector<double> (4000, 1.0));
        const double length = rateHz / 100; // 110.25 samples at the lowest rate, of which the fraction counts
        double worst = 0.0;
        for (std::size_t i = 0; i < heard.size (); ++i)
        {
            const double position = static_cast<double> (i) / length - 0.5;
            const double weight = i < std::size_t (length) ? 0.5 * (1 + std::tanh (5 * position)) : 1.0;
            worst = std::max (worst, std::abs (heard[i] - weight));
        }
        CAPTURE (rateHz);
        CHECK (worst < 1e-12);
    }
}

TEST_CASE ("BlendBiquad: the new filter begins in silence while the old one rings on")
{
    const BiquadCoefs ringing{ 1.0, 0.0, 0.0, 0.99, 0.0 }; // 1, 0.99, 0.99^2, ...
    FilterUnderTest test (ringing, 44100);
    std::vector<double> impulse (1000);
    impulse[0] = 1.0;
    test.run (impulse);
    test.change (ringing);
    const std::vector<double> heard = test.run (std::vector<double> (1000));
    for (const std::size_t i : { 0U, 220U, 440U })
        CHECK (heard[i] ==
               Approx (std::pow (0.99, 1000.0 + double (i)) / (1 + std::exp ((double (i) - 220.5) / 44.1))));
    CHECK (heard[441] == 0.0);
}

TEST_CASE ("BlendBiquad: a change during a crossfade waits for its end, and only the last is heard")
{
    FilterUnderTest test (gainOf (1.0), 48000);
    test.change (gainOf (2.0));
    test.run (std::vector<double> (100, 1.0));
    test.change (gainOf (5.0));
    test.change (gainOf (3.0));
    const std::vector<double> heard = test.run (std::vector<double> (1000, 1.0));
    CHECK (heard[379] == Approx (2.0).epsilon (0.01)); // 0.7 percent away from the end
    CHECK (*std::max_element (heard.begin (), heard.begin () + 380) < 2.0);
    CHECK (heard[380] == Approx (2.0 + 1 / (1 + std::exp (5.0))));
    CHECK (heard[860] == 3.0);
}

TEST_CASE ("BlendBiquad: a start begins in silence, without a crossfade")
{
    FilterUnderTest test ({ 1.0, 0.0, 0.0, 0.99, 0.0 }, 48000);
    test.change (gainOf (7.0));
    test.run ({ 1.0 });
    test.filter.startUp (gainOf (2.0), 48000);
    CHECK (test.run ({ 0.0, 1.0, 1.0 }) == std::vector{ 0.0, 2.0, 2.0 });
}

TEST_CASE ("BlendBiquad: a design that is not finite is not taken up")
{
    FilterUnderTest test (gainOf (2.0), 48000);
    for (int coef = 0; coef < 5; ++coef)
    {
        BiquadCoefs bad = gainOf (1.0);
        (&bad.c0)[coef] = coef % 2 == 0 ? std::numeric_limits<double>::infinity () : std::nan ("");
        test.change (bad);
        CHECK (test.run ({ 1.0 })[0] == 2.0);
        test.filter.startUp (bad, 48000);
        CHECK (test.run ({ 1.0 })[0] == 2.0);
    }
}

TEST_CASE ("BlendBiquad: clearing the state silences both filters of a crossfade")
{
    FilterUnderTest test ({ 1.0, 0.0, 0.0, 0.99, 0.0 }, 48000);
    test.change ({ 1.0, 0.0, 0.0, 0.9, 0.0 });
    test.run ({ 1.0, 1.0 });
    test.filter.clearState ();
    CHECK (test.run ({ 0.0 })[0] == 0.0);
}
