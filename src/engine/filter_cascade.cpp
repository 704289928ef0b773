#include "filter_cascade.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace tessaly
{

using std::numbers::pi;

FilterCascade::FilterCascade ()
{
    setOrder (2);
}

void FilterCascade::setOrder (std::uint32_t newOrder)
{
    order = newOrder;
    hasFirstOrderStage = newOrder % 2;
    evenOrder = newOrder - hasFirstOrderStage;
    sectionState.assign (evenOrder / 2, {});
    sectionCoefs.assign (evenOrder / 2, {});
}

void FilterCascade::clear ()
{
    std::fill (sectionCoefs.begin (), sectionCoefs.end (), BiquadCoefs{});
    firstOrderCoefs = {};
    clearState ();
}

void FilterCascade::clearState ()
{
    std::fill (sectionState.begin (), sectionState.end (), BiquadState{});
    firstOrderState = {};
}

void FilterCascade::requireOrder (std::uint32_t wantedOrder)
{
    if (order == wantedOrder)
        return;
    setOrder (wantedOrder);
    clear ();
}

void FilterCascade::designHighPass (std::uint32_t newOrder, double sampleRate, double f)
{
    requireOrder (newOrder);
    const double t = std::tan (pi * f / sampleRate);
    const double n = newOrder;
    for (std::size_t k = 0; k < sectionCoefs.size (); ++k)
    {
        const double a = -2 * std::cos ((n + 1 + 2 * static_cast<double> (k)) * pi / (2 * n)) * t;
        const double b = t * t;
        const double D = 1 + a + b;
        sectionCoefs[k] = { 1 / D, -2 / D, 1 / D, 2 * (1 - b) / D, -(1 - a + b) / D };
    }
    if (hasFirstOrderStage != 0)
    {
        const double D = 1 + t;
        firstOrderCoefs = { 1 / D, -1 / D, 0.0, (1 - t) / D, 0.0 };
    }
}

void FilterCascade::designLowPass (double sampleRate, double f, double q)
{
    requireOrder (2);
    const double t = std::tan (pi * f / sampleRate);
    const double u = t / q;
    const double D = 1 + u + t * t;
    sectionCoefs[0] = { t * t / D, 2 * t * t / D, t * t / D, 2 * (1 - t * t) / D, -(1 - u + t * t) / D };
}

void FilterCascade::designSmoother (double k)
{
    requireOrder (1);
    firstOrderCoefs = { k, 0.0, 0.0, 1 - k, 0.0 };
}

void FilterCascade::designSmoother (double sampleRate, double f)
{
    designSmoother (1 - std::exp (-2 * pi * f / sampleRate));
}

void FilterCascade::process (double* samples, std::size_t count)
{
    for (std::size_t k = 0; k < sectionCoefs.size (); ++k)
        for (std::size_t i = 0; i < count; ++i)
            samples[i] = throughSecondOrder (sectionCoefs[k], sectionState[k], samples[i]);
    if (hasFirstOrderStage != 0)
        for (std::size_t i = 0; i < count; ++i)
            samples[i] = throughFirstOrder (firstOrderCoefs, firstOrderState, samples[i]);
}

} // namespace tessaly
