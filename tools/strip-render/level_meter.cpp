#include "level_meter.h"

#include "text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tessaly::render
{

void LevelMeter::Add (std::span<const float> samples)
{
    // Lanes of their own let the compiler use SIMD, which it may not for one sum: its order of additions is fixed.
    constexpr std::size_t kLanes = 8;
    std::array<float, kLanes> peaks{};
    std::array<double, kLanes> sums{};
    const std::size_t whole = samples.size () - samples.size () % kLanes;
    for (std::size_t i = 0; i < whole; i += kLanes)
        for (std::size_t lane = 0; lane < kLanes; ++lane)
        {
            const float x = std::abs (samples[i + lane]);
            peaks[lane] = x > peaks[lane] ? x : peaks[lane];
            sums[lane] += static_cast<double> (x) * static_cast<double> (x);
        }
    const double sum = std::accumulate (sums.begin (), sums.end (), 0.0);
    if (std::isfinite (sum)) // squares of finite floats are finite as doubles, and so are their sums
    {
        peak = std::max (peak, static_cast<double> (*std::ranges::max_element (peaks)));
        sumOfSquares += sum;
        AddOneByOne (samples.subspan (whole));
    }
    else
        AddOneByOne (samples);
    count += static_cast<std::int64_t> (samples.size ());
}

void LevelMeter::AddOneByOne (std::span<const float> samples)
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
