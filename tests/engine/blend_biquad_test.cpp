#include "blend_biquad.h"

#include "measure.h"

#include <cmath>
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;

TEST_CASE ("BlendBiquad: designs of two threads are heard and drawn whole")
{
    // A zero on the pole: every whole set passes a steady 1 as 1, from the first sample on; a mixed one does not.
    const auto set = [] (int i) { return BiquadCoefs{ 1.0, 1.0 * i, 0.0, -1.0 * i, 0.0 }; };
    BlendBiquad filter;
    filter.setTarget (set (0));
    filter.startUp (44100);
    const auto design = [&] (int first)
    {
        for (int i = first; i < first + 20000; ++i)
            filter.setTarget (set (i));
    };
    std::thread one (design, 0);
    std::thread other (design, 100000);
    int wrong = 0;
    for (int i = 0; i < 20000; ++i)
        wrong += std::abs (oneSample (filter, 1.0) - 1.0) > 1e-12 || filter.responseDb (0, 44100) != 0.0;
    one.join ();
    other.join ();
    CHECK (wrong == 0);
}
