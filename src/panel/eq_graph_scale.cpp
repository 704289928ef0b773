#include "eq_graph_scale.h"

#include "truncate.h"
#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

constexpr double kGainSpan = EqGraphScale::kHighestGain - EqGraphScale::kLowestGain;
constexpr double kDecades = 3.0; // log10 (kHighestFrequency / kLowestFrequency)

} // namespace

double EqGraphScale::GainToYExact (double gainDb) const
{
    const double last = plot.bottom - 1;
    return last + (plot.top - last) * (gainDb - kLowestGain) / kGainSpan;
}

std::int32_t EqGraphScale::GainToY (double gainDb) const
{
    return Truncate (std::round (GainToYExact (gainDb)));
}

double EqGraphScale::PixelToGainExact (double y) const
{
    const double last = plot.bottom - 1;
    return kLowestGain + kGainSpan * (y - last) / (plot.top - last);
}

std::int32_t EqGraphScale::FreqToX (double hz) const
{
    return Truncate (std::round (plot.left + (plot.Width () - 1) * std::log10 (hz / kLowestFrequency) / kDecades));
}

double EqGraphScale::XToFreqExact (double x) const
{
    return kLowestFrequency * std::pow (10.0, kDecades * (x - plot.left) / (plot.Width () - 1));
}

double EqGraphScale::XToFreq (double x) const
{
    return std::clamp (XToFreqExact (x), kLowestFrequency, kHighestFrequency);
}

} // namespace tessaly
