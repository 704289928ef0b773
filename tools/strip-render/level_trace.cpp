#include "level_trace.h"

#include <algorithm>
#include <cmath>

namespace tessaly::render
{

namespace
{

constexpr std::size_t kMostStretches = 1600; // twice as many at least as a plot has places for

void Measure (std::span<const float> samples, float& peak, double& squares)
{
    for (const float sample : samples)
        if (const float x = std::abs (sample); std::isfinite (x))
        {
            peak = std::max (peak, x);
            squares += static_cast<double> (x) * static_cast<double> (x);
        }
}

void Append (LevelTrace::Stretch& to, const LevelTrace::Stretch& next)
{
    to.frames += next.frames;
    to.inputPeak = std::max (to.inputPeak, next.inputPeak);
    to.outputPeak = std::max (to.outputPeak, next.outputPeak);
    to.inputSquares += next.inputSquares;
    to.outputSquares += next.outputSquares;
    to.reductionDb = std::max (to.reductionDb, next.reductionDb);
}

} // namespace

LevelTrace::LevelTrace (int channelCount)
    : channels (channelCount)
{
}

void LevelTrace::Add (std::span<const float> input, std::span<const float> output, double reductionDb)
{
    Stretch block{ .frames = static_cast<std::int64_t> (output.size ()) / channels, .reductionDb = reductionDb };
    Measure (input, block.inputPeak, block.inputSquares);
    Measure (output, block.outputPeak, block.outputSquares);
    if (stretches.empty () || stretches.back ().frames >= framesEach)
        stretches.emplace_back ();
    Append (stretches.back (), block);
    if (stretches.size () == kMostStretches && stretches.back ().frames >= framesEach)
        Halve ();
}

void LevelTrace::Halve ()
{
    for (std::size_t i = 0; i < stretches.size () / 2; ++i)
    {
        stretches[i] = stretches[2 * i];
        Append (stretches[i], stretches[2 * i + 1]);
    }
    stretches.resize (stretches.size () / 2);
    framesEach = stretches.front ().frames;
}

void LevelTrace::ApplyToOutput (double gain)
{
    for (Stretch& stretch : stretches)
    {
        stretch.outputPeak = static_cast<float> (stretch.outputPeak * gain);
        stretch.outputSquares *= gain * gain;
    }
}

} // namespace tessaly::render
