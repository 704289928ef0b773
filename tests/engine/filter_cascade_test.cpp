#include "filter_cascade.h"

#include "measure.h"
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr double kRate = 44100;

double measured (FilterCascade filter, double frequency)
{
    return measuredGain ([&] (double x) { return oneSample (filter, x); }, kRate, frequency);
}

} // namespace

TEST_CASE ("FilterCascade: the high-pass has the Butterworth magnitude at every order, starting from silence")
{
    const auto warped = [] (double f) { return std::tan (std::numbers::pi * f / kRate); };
    FilterCascade filter;
    for (const std::uint32_t order : { 0U, 1U, 2U, 3U, 4U, 5U })
    {
        filter.designHighPass (order, kRate, 1000);
        for (const double f : { 300.0, 5000.0, 22050.0 })
        {
            const double below = order == 0 ? 0.0 : std::pow (warped (1000) / warped (f), 2 * order);
            CHECK (measured (filter, f) == Approx (1 / std::sqrt (1 + below)).epsilon (1e-9));
        }
        oneSample (filter, 1.0); // a sound that the next order has to forget
    }
}

TEST_CASE ("FilterCascade: the low-pass has gain q at its corner, the smoother 1/e left after the time of its corner")
{
    FilterCascade filter;
    filter.designLowPass (kRate, 2000, 4.0);
    CHECK (measured (filter, 2000) == Approx (4.0).epsilon (1e-9));
    CHECK (measured (filter, 0) == Approx (1.0).epsilon (1e-9));
    CHECK (measured (filter, kRate / 2) < 1e-9);
    filter.designSmoother (kRate, kRate / (2 * std::numbers::pi * 100)); // 100 samples
    for (int n = 0; n < 99; ++n)
        oneSample (filter, 1.0);
    CHECK (1 - oneSample (filter, 1.0) == Approx (std::exp (-1.0)).epsilon (1e-9));
}
