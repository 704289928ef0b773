#include "strip_steps.h"

#include <atomic>
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;

TEST_CASE ("StripSteps: a part is taken once for all of its steps, and not for one without a meaning")
{
    StripSteps steps;
    steps.set (StripParameter::midFreq, 30);
    steps.set (StripParameter::midQ, 40);
    CHECK_FALSE (steps.take (StripPart::lowBand));
    CHECK (steps.take (StripPart::midBand));
    CHECK_FALSE (steps.take (StripPart::midBand));
    for (const int step : { -1, 1000 })
        steps.set (StripParameter::attack, step);
    steps.set (static_cast<StripParameter> (kStripParameterCount), 1);
    CHECK_FALSE (steps.take (StripPart::dynamics));
}

TEST_CASE ("StripSteps: who takes a part reads the steps that it was marked for, on any thread")
{
    constexpr int kLast = 100000;
    StripSteps steps;
    std::thread setter (
        [&]
        {
            for (int i = 1; i <= kLast; ++i)
                steps.set (StripParameter::drive, i);
        });
    int read = 0;
    while (read != kLast) // the last one is taken, however the threads meet
        if (steps.take (StripPart::dynamics))
            read = steps[StripParameter::drive];
    setter.join ();
    CHECK (steps[StripParameter::drive] == kLast);
}
