#include "gain_computer.h"

#include "compressor.h"

#include <array>
#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr double kThresholdDb = -30.0;

struct CompressorWith : StripSteps, Compressor
{
    CompressorWith (std::uint16_t shape, std::int32_t ratioStep)
        : Compressor (static_cast<StripSteps&> (*this))
    {
        set (StripParameter::knee, shape);
        set (StripParameter::ratio, ratioStep);
        set (StripParameter::drive, std::int32_t (-5 * kThresholdDb));
    }
};

} // namespace

TEST_CASE ("Gain computer: a knee is the textbook's parabola between its two straight lines")
{
    for (const auto& [knee, widthDb] : { std::pair (kSoftKnee, 52.0), { kMiddleKnee, 20.0 }, { kHardKnee, 0.0 } })
        for (const double overDb : { -27.0, -15.0, -9.9, -1.0, 0.0, 1.0, 9.9, 15.0, 27.0, 30.0 })
        {
            const double into = std::max (overDb + widthDb / 2, 0.0);
            const double parabola = widthDb > 0 ? into * into / (2 * widthDb) : 0.0;
            CAPTURE (knee);
            CAPTURE (overDb);
            CHECK (20 * shapedLevel (overDb / 20, kneeCurve (-1.0, knee)) ==
                   Approx (2 * overDb > widthDb ? overDb : parabola).epsilon (2e-5));
        }
}

TEST_CASE ("Gain computer: at a threshold of 0 dB every knee is hard")
{
    for (const std::uint16_t knee : { kSoftKnee, kMiddleKnee, kHardKnee })
        CHECK (shapedLevel (-0.1, kneeCurve (0.0, knee)) == 0.0);
    CHECK (shapedLevel (-0.1, kneeCurve (-0.2, kSoftKnee)) > 0.0);
}

TEST_CASE ("Gain computer: a standing level sounds as the curve draws it")
{
    for (const std::uint16_t knee : { kSoftKnee, kMiddleKnee, kHardKnee })
        for (const std::int32_t ratioStep : { 0, 60, 120 })
            for (const double inputDb : { -57.0, -45.0, -33.0, -29.0, -23.0, -15.0, 0.0 })
            {
                CompressorWith compressor (knee, ratioStep);
                compressor.takeUpSettings ();
                std::array<double, kChunkSamples> level{};
                std::array<double, kChunkSamples> ones{};
                level.fill ((inputDb - kThresholdDb) / 20);
                double gain = 1.0;
                for (int chunk = 0; chunk < 100; ++chunk) // until the slope has landed
                    gain = compressor.applyGains (level.data (), ones.data (), kChunkSamples);
                CAPTURE (knee);
                CAPTURE (ratioStep);
                CHECK (20 * std::log10 (gain) ==
                       Approx (compressor.compressorCurveDb (inputDb) - inputDb).epsilon (1e-9));
            }
}
