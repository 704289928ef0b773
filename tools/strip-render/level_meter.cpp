#include "level_meter.h"

#include "simd_clones.h"
#include "text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tessaly::render
{

namespace
{

// Lanes of their own let the compiler use SIMD, which it may not for one sum: its order of additions is fixed.
constexpr std::size_t kLanes = 32;

struct PieceLevels
{
    float peak;
    float sumOfSquares;
};

/// @param piece  a multiple of kLanes; short, so that its squares may be summed as floats
TESSALY_SIMD_CLONES PieceLevels LevelsOf (std::span<const float> piece)
{
    std::array<float, kLanes> peaks{};
    std::array<float, kLanes> sums{};
    for (std::size_t i = 0; i < piece.size (); i += kLanes)
        for (std::size_t lane = 0; lane < kLanes; ++lane)
        {
            const float x = std::abs (piece[i + lane]);
            peaks[lane] = x > peaks[lane] ? x : peaks[lane];
            sums[lane] += x * x;
        }
    return { *std::ranges::max_element (peaks), std::accumulate (sums.begin (), sums.end (), 0.0F) };
}

} // namespace

void LevelMeter::Add (std::span<const float> samples)
{
    constexpr std::size_t kPiece = 16 * kLanes;
    count += static_cast<std::int64_t> (samples.size ());
    while (samples.size () >= kLanes)
    {
        const auto piece = samples.first (std::min (kPiece, samples.size () - samples.size () % kLanes));
        samples = samples.subspan (piece.size ());
        if (const auto levels = LevelsOf (piece); std::isfinite (levels.sumOfSquares))
        {
            peak = std::max (peak, static_cast<double> (levels.peak));
            sumOfSquares += static_cast<double> (levels.sumOfSquares);
        }
        else // infinite, NaN, or so large that its square is
            AddOneByOne (piece);
    }
    AddOneByOne (samples);
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
