#include "equalizer.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("Equalizer: bands beyond 0.48 of the rate are drawn as at 0.48 of it")
{
    StripSteps steps;
    Equalizer equalizer (steps);
    equalizer.startUp (44100);
    steps.set (StripParameter::highGain, 360);
    CHECK (equalizer.responseDb (22000, 3) == equalizer.responseDb (0.48 * 44100, 3));
    CHECK (equalizer.responseDb (0.479 * 44100, 3) != equalizer.responseDb (0.48 * 44100, 3));
}

TEST_CASE ("Equalizer: each setting crossfades its own band from the next stretch on")
{
    for (int index = int (StripParameter::drive); index <= int (StripParameter::bypass); ++index)
    {
        StripSteps steps;
        Equalizer equalizer (steps);
        equalizer.startUp (48000);
        steps.set (static_cast<StripParameter> (index), 40);
        const bool isOurs = index >= int (StripParameter::highFreq) && index <= int (StripParameter::lowGain);
        CAPTURE (index);
        CHECK (equalizer.takeUpDesigns () == (isOurs ? 480 : std::numeric_limits<std::size_t>::max ()));
        FadeWeights weights (1);
        Recursions r{};
        equalizer.gather (r, weights);
        CHECK ((r.high.weight != nullptr) == (index == 10 || index == 11));
        CHECK ((r.mid.weight != nullptr) == (index >= 12 && index <= 14));
        CHECK ((r.low.weight != nullptr) == (index == 15 || index == 16));
    }
}

TEST_CASE ("Equalizer: settings from another thread give whole designs")
{
    // Whatever gain and frequency a design meets, a low shelf has that gain at 0 Hz: 0 or 18 dB, nothing else.
    StripSteps steps;
    Equalizer equalizer (steps);
    std::atomic<bool> done = false;
    std::thread setter (
        [&]
        {
            for (int i = 0; i < 20000; ++i)
            {
                steps.set (StripParameter::lowGain, i % 2 == 0 ? 180 : 360);
                steps.set (StripParameter::lowFreq, 4 + i % 60);
            }
            done = true;
        });
    int wrong = 0;
    while (!done)
    {
        const double atZero = equalizer.responseDb (0, 1);
        wrong += !(std::abs (atZero) < 1e-9 || std::abs (atZero - 18) < 1e-9);
        const std::size_t count = std::min (equalizer.takeUpDesigns (), kChunkSamples);
        FadeWeights weights (count);
        Recursions r{};
        equalizer.gather (r, weights);
        const double gain = (r.low.live.c0 + r.low.live.c1) / (1 - r.low.live.c3);
        wrong += !(std::abs (gain - 1) < 1e-9 || std::abs (20 * std::log10 (gain) - 18) < 1e-9);
        equalizer.scatter (r, count);
    }
    setter.join ();
    CHECK (wrong == 0);
    CHECK (equalizer.bandFrequency (1) == Approx (equalizer.value (StripParameter::lowFreq)));
}
