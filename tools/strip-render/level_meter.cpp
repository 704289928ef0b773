#include "level_meter.h"

#include "text.h"

#include <algorithm>
#include <cmath>

namespace tessaly::render
{

void LevelMeter::Add (std::span<const float> samples)
{
    for (const float sample : samples)
    {
        const double x = static_cast<double> (sample);
        if (!std::isfinite (x))
        {
            ++invalid;
            continue;
        }
        peak = std::max (peak, std::abs (x));
        sumOfSquares += x * x;
    }
    count += static_cast<std::int64_t> (samples.size ());
}

double LevelMeter::PeakDb () const
{
    return 20.0 * std::log10 (peak);
}

double LevelMeter::RmsDb () const
{
    return count == 0 ? -HUGE_VAL : 10.0 * std::log10 (sumOfSquares / static_cast<double> (count));
}

std::string LevelText (double dbfs)
{
    return std::isinf (dbfs) && dbfs < 0.0 ? "silent" : ToText (dbfs, 2) + " dBFS";
}

} // namespace tessaly::render
