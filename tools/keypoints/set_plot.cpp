#include "set_plot.h"

#include "channel_strip.h"
#include "channel_strip_parameters.h"
#include "set_file.h"
#include "ticks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessaly::keypoints
{

namespace
{

using plot::Color;
using plot::Curve;

// The color map "plasma" of S. van der Walt and N. Smith, from 0 to 0.7: its lightness grows evenly, so that the order
// is seen with any color vision and on paper.
constexpr std::array kColors{
    Color{ 0.051, 0.031, 0.529 }, Color{ 0.229, 0.018, 0.605 }, Color{ 0.375, 0.004, 0.648 },
    Color{ 0.506, 0.032, 0.649 }, Color{ 0.627, 0.108, 0.604 }, Color{ 0.734, 0.207, 0.529 },
    Color{ 0.821, 0.307, 0.449 }, Color{ 0.891, 0.408, 0.373 }, Color{ 0.949, 0.518, 0.294 },
};
static_assert (kColors.size () == kSetRows);

constexpr double kSampleRateHz = 48000.0;
constexpr float kDriveStep = 100.0F; // 5.0 on the panel
constexpr int kSamples = 360;

constexpr double kPageWidth = 900.0;
constexpr double kPageHeight = 400.0;
constexpr double kTop = 88.0;
constexpr double kHeight = 256.0;

/// A strip that is set as a key point says.
void SetUp (Channel_Strip& strip, const KeyPointSet& table, std::uint32_t row)
{
    strip.SetSampleRateOld (kSampleRateHz);
    strip.SetParameterOld (IndexOf (StripParameter::drive), kDriveStep);
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
        strip.SetParameterOld (KeyPointSet::KeyPointParameter (row, column),
                               static_cast<float> (table.KeyPointStep (row, column)));
}

/// Beyond any diagram: the steps of a file may lie beyond their parameters, and what they make be infinite or NaN.
constexpr double kFarthestDb = 1000.0;

/// @param placeAt  of 0 to 1, along the axis
/// @param valueAt  in dB, of a place on the axis
template <typename Place, typename Value>
std::vector<plot::Sample> Sampled (const Place& placeAt, const Value& valueAt)
{
    std::vector<plot::Sample> samples;
    for (int i = 0; i <= kSamples; ++i)
    {
        const double x = placeAt (static_cast<double> (i) / kSamples);
        samples.push_back ({ x, std::fmin (std::fmax (valueAt (x), -kFarthestDb), kFarthestDb) }); // NaN as lowest
    }
    return samples;
}

struct Curves
{
    std::vector<Curve> equalizer;
    std::vector<Curve> compressor;
};

constexpr double kLowestHz = 20.0;
constexpr double kHighestHz = 20000.0;
constexpr double kLowestDb = -60.0;

Curves CurvesOf (const KeyPointSet& table)
{
    Curves curves;
    for (std::uint32_t row = 0; row < kSetRows; ++row)
    {
        if (!table.HasKeyPoint (row))
            continue;
        Channel_Strip strip (nullptr);
        SetUp (strip, table, row);
        const Curve curve{ .samples = {}, .color = kColors[row], .endLabel = std::to_string (row + 1) };
        curves.equalizer.push_back (curve);
        curves.equalizer.back ().samples =
            Sampled ([] (double part) { return kLowestHz * std::pow (kHighestHz / kLowestHz, part); },
                     [&] (double hz) { return strip.eqResponseDb (hz, 0); });
        curves.compressor.push_back (curve);
        curves.compressor.back ().samples = Sampled ([] (double part) { return kLowestDb * (1.0 - part); },
                                                     [&] (double db) { return strip.compressorCurveDb (db); });
    }
    return curves;
}

/// Half the height of the equalizer's diagram: steps of 6 dB, at most what three bands make.
double LargestGainDb (const std::vector<Curve>& curves)
{
    constexpr double kStepDb = 6.0;
    constexpr double kMostDb = 54.0;
    double largest = kStepDb;
    for (const Curve& curve : curves)
        for (const plot::Sample& sample : curve.samples)
            largest = std::max (largest, std::abs (sample.y));
    return std::min (std::ceil (largest / kStepDb - 1e-6) * kStepDb, kMostDb);
}

} // namespace

plot::Page PlotOf (const std::string& name, const KeyPointSet& table)
{
    Curves curves = CurvesOf (table);
    const double gainDb = LargestGainDb (curves.equalizer);
    plot::Diagram equalizer{ .title = "Equalizer",
                             .x = { .title = "Frequency, Hz",
                                    .first = kLowestHz,
                                    .last = kHighestHz,
                                    .logarithmic = true,
                                    .ticks = plot::FrequencyTicks () },
                             .y = { .title = "Gain, dB",
                                    .first = -gainDb,
                                    .last = gainDb,
                                    .ticks = plot::StepTicks (-gainDb, gainDb, gainDb > 18.0 ? 6.0 : 3.0) },
                             .curves = std::move (curves.equalizer),
                             .left = 66.0,
                             .top = kTop,
                             .width = 420.0,
                             .height = kHeight };
    plot::Diagram compressor{ .title = "Compressor at Drive 5, without makeup",
                              .x = { .title = "Input, dBFS",
                                     .first = kLowestDb,
                                     .last = 0.0,
                                     .ticks = plot::StepTicks (kLowestDb, 0.0, 12.0) },
                              .y = { .title = "Output, dBFS",
                                     .first = kLowestDb,
                                     .last = 0.0,
                                     .ticks = plot::StepTicks (kLowestDb, 0.0, 12.0) },
                              .curves = std::move (curves.compressor),
                              .left = 590.0,
                              .top = kTop,
                              .width = 262.0,
                              .height = kHeight };
    return {
        .width = kPageWidth,
        .height = kPageHeight,
        .title = name,
        .note =
            "The equalizer and the compressor at each key point, 1 (Morph at 0) to 9 (Morph at 120), in steps of 15",
        .diagrams = { std::move (equalizer), std::move (compressor) }
    };
}

} // namespace tessaly::keypoints
