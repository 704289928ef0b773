#include "level_plot.h"

#include "text.h"
#include "ticks.h"

#include <algorithm>
#include <cmath>

namespace tessaly::render
{

namespace
{

using plot::Curve;
using plot::Diagram;

// Two colors that are told apart with any color vision (M. Okabe, K. Ito, "Color Universal Design", 2008).
constexpr plot::Color kInputColor{ 0.0, 0.447, 0.698 };
constexpr plot::Color kOutputColor{ 0.835, 0.369, 0.0 };
constexpr plot::Color kReductionColor{ 0.25, 0.27, 0.31 };

constexpr double kPageWidth = 900.0;
constexpr double kPageHeight = 560.0;
constexpr double kLeft = 70.0;
constexpr double kRight = 24.0;
constexpr double kFloorDb = -60.0; // below is drawn at the edge

double ToDb (double linear)
{
    return std::max (20.0 * std::log10 (linear), 2.0 * kFloorDb);
}

/// A sample for each stretch, at its middle, by what `level` makes of it.
template <typename Level>
std::vector<plot::Sample> Samples (const LevelTrace& trace, int rateHz, const Level& level)
{
    std::vector<plot::Sample> samples;
    double start = 0.0;
    for (const auto& stretch : trace.Stretches ())
    {
        const double seconds = static_cast<double> (stretch.frames) / rateHz;
        samples.push_back ({ start + seconds / 2.0, level (stretch) });
        start += seconds;
    }
    return samples;
}

std::vector<Curve> LevelCurves (const LevelTrace& trace, int rateHz)
{
    using Stretch = LevelTrace::Stretch;
    const auto rms = [&] (double squares, const Stretch& stretch)
    { return ToDb (std::sqrt (squares / static_cast<double> (stretch.frames * trace.Channels ()))); };
    constexpr double kThin = 0.8;
    constexpr double kPale = 0.6;
    return { { .samples = Samples (trace, rateHz, [] (const Stretch& s) { return ToDb (s.inputPeak); }),
               .color = kInputColor,
               .width = kThin,
               .opacity = kPale,
               .legend = "peak in" },
             { .samples = Samples (trace, rateHz, [] (const Stretch& s) { return ToDb (s.outputPeak); }),
               .color = kOutputColor,
               .width = kThin,
               .opacity = kPale,
               .legend = "peak out" },
             { .samples = Samples (trace, rateHz, [&] (const Stretch& s) { return rms (s.inputSquares, s); }),
               .color = kInputColor,
               .legend = "RMS in" },
             { .samples = Samples (trace, rateHz, [&] (const Stretch& s) { return rms (s.outputSquares, s); }),
               .color = kOutputColor,
               .legend = "RMS out" } };
}

/// Full scale, or what is above it in steps of 6 dB.
double TopDb (const LevelTrace& trace)
{
    constexpr double kStepDb = 6.0;
    float largest = 1.0F;
    for (const auto& stretch : trace.Stretches ())
        largest = std::max ({ largest, stretch.inputPeak, stretch.outputPeak });
    return std::ceil (ToDb (static_cast<double> (largest)) / kStepDb - 1e-6) * kStepDb;
}

Diagram LevelDiagram (const LevelTrace& trace, int rateHz, const plot::Axis& time)
{
    constexpr double kTickDb = 12.0;
    constexpr double kMostTicks = 10.0; // floats reach 770 dB above full scale
    const double top = TopDb (trace);
    const double tick = kTickDb * std::ceil ((top - kFloorDb) / (kTickDb * kMostTicks));
    return {
        .title = "Level",
        .x = time,
        .y = { .title = "Level, dBFS", .first = kFloorDb, .last = top, .ticks = plot::StepTicks (kFloorDb, top, tick) },
        .curves = LevelCurves (trace, rateHz),
        .left = kLeft,
        .top = 88.0,
        .width = kPageWidth - kLeft - kRight,
        .height = 230.0
    };
}

Diagram ReductionDiagram (const LevelTrace& trace, const Summary& summary, const plot::Axis& time)
{
    const double end = summary.result.largestGainReductionDb > 12.0 ? 24.0 : 12.0;
    return {
        .title = "Gain reduction",
        .x = time,
        .y = { .title = "Reduction, dB", .first = end, .last = 0.0, .ticks = plot::StepTicks (0.0, end, end / 4.0) },
        .curves = { { .samples = Samples (trace, summary.sampleRateHz,
                                          [] (const LevelTrace::Stretch& s) { return s.reductionDb; }),
                      .color = kReductionColor,
                      .width = 1.2,
                      .fillsToZero = true } },
        .left = kLeft,
        .top = 396.0,
        .width = kPageWidth - kLeft - kRight,
        .height = 110.0
    };
}

std::string Note (const Summary& summary)
{
    std::string note = std::to_string (summary.channels) + (summary.channels == 1 ? " channel, " : " channels, ") +
                       std::to_string (summary.sampleRateHz) +
                       " Hz; levels over all channels, the largest reduction "
                       "of them";
    if (summary.matchGainDb)
        note += "; output matched by " + ToText (*summary.matchGainDb, 2) + " dB";
    return note;
}

} // namespace

LevelPlot::LevelPlot (const std::filesystem::path& file, host::Existing existing)
    : picture (file, existing)
{
}

void LevelPlot::Commit (const LevelTrace& trace, const Summary& summary)
{
    const double seconds = static_cast<double> (summary.result.frames) / summary.sampleRateHz;
    const plot::Axis time{ .title = plot::TimeTitle (seconds),
                           .first = 0.0,
                           .last = std::max (seconds, 1e-6),
                           .ticks = plot::TimeTicks (seconds) };
    picture.Commit (
        { .width = kPageWidth,
          .height = kPageHeight,
          .title = summary.output.filename ().string (),
          .note = Note (summary),
          .diagrams = { LevelDiagram (trace, summary.sampleRateHz, time), ReductionDiagram (trace, summary, time) } });
}

} // namespace tessaly::render
