#include "block_math.h"

#include "measure.h"
#include "noise_generator.h"

#include <array>
#include <doctest/doctest.h>
#include <limits>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

using Row = std::array<double, kChunkSamples>;

} // namespace

TEST_CASE ("BlockMath: the level of a sample is its exact logarithm to 2e-13, with a floor 30 dB below the threshold")
{
    double worst = 0.0;
    for (double from = 1e-7; from < 1e9; from *= 1.9)
    {
        Row samples{};
        Row level{};
        for (std::size_t i = 0; i < samples.size (); ++i)
            samples[i] = (i % 2 == 0 ? 1.0 : -1.0) * from * (1.0 + static_cast<double> (i) / 64.0);
        blockMath ().levels (samples.data (), 1e-8, -2.0, level.data (), level.size ());
        for (std::size_t i = 0; i < samples.size (); ++i)
            worst = std::max (worst, std::abs (level[i] - (std::log10 (std::abs (samples[i])) + 2.0)));
    }
    CHECK (worst < 2e-13);

    const std::array<double, 5> edges{ 0.0316, -0.0316, 0.0315999, 0.0, 5e-324 };
    std::array<double, 5> level{};
    blockMath ().levels (edges.data (), 0.0316, 0.0, level.data (), edges.size ());
    CHECK (level[0] == Approx (std::log10 (0.0316)));
    CHECK (level[1] == level[0]);
    CHECK ((level[2] == -1.5 && level[3] == -1.5 && level[4] == -1.5));
}

TEST_CASE ("BlockMath: the gain is the exact power to 2e-13, exactly 1 below the knee, and the smallest is told")
{
    for (const auto& [halfWidth, curvature] : { std::pair (1.3, 0.19231), { 0.5, 0.5 }, { 0.0, 0.0 } })
    {
        double worst = 0.0;
        for (double from = -2.0; from < 12.0; from += 0.1)
        {
            Row level{};
            Row slope{};
            Row gain{};
            double smallest = 1.0;
            for (std::size_t i = 0; i < level.size (); ++i)
            {
                level[i] = from + static_cast<double> (i) / 640.0;
                slope[i] = static_cast<double> (i) / 63.0;
            }
            const double told =
                blockMath ().gains (level.data (), slope.data (), halfWidth, curvature, gain.data (), 63);
            for (std::size_t i = 0; i < 63; ++i)
            {
                const double e = level[i] > halfWidth     ? level[i]
                                 : level[i] <= -halfWidth ? 0.0
                                                          : curvature * std::pow (level[i] + halfWidth, 2);
                worst = std::max (worst, std::abs (gain[i] * std::pow (10.0, slope[i] * e) - 1.0));
                smallest = std::min (smallest, gain[i]);
                if (level[i] <= -halfWidth)
                    CHECK (gain[i] == 1.0);
            }
            CHECK (told == smallest);
        }
        CHECK (worst < 2e-13);
    }
}

TEST_CASE ("BlockMath: the noise is the C standard's example generator around 0, however its rows are cut")
{
    const std::vector<float> silence (100);
    std::vector<double> once (100);
    std::vector<double> pieces (100);
    std::uint32_t state = kNoiseSeed;
    blockMath ().addNoise (silence.data (), state, once.data (), 100);
    std::size_t position = 0;
    for (const int r : { 16838, 5758, 10113, 17515, 31051 }) // with seed 1, as many a textbook prints them
        CHECK (once[position++] == (r - 16384) * 1e-16);

    state = kNoiseSeed;
    position = 0;
    for (const std::size_t count : { 1U, 17U, 64U, 3U, 15U })
    {
        blockMath ().addNoise (silence.data (), state, pieces.data () + position, count);
        position += count;
    }
    CHECK (pieces == once);
}

TEST_CASE ("BlockMath: samples that are no numbers are seen wherever they stand, and outputs are compared as meters do")
{
    std::array<float, 35> in{};
    Row out{};
    std::uint32_t state = kNoiseSeed;
    in.fill (-std::numeric_limits<float>::max ());
    CHECK (blockMath ().addNoise (in.data (), state, out.data (), in.size ()));
    for (const std::size_t place : { 0U, 7U, 31U, 34U })
        for (const float bad : { std::numeric_limits<float>::infinity (), -std::numeric_limits<float>::infinity (),
                                 std::numeric_limits<float>::quiet_NaN () })
        {
            in.fill (0.5F);
            in[place] = bad;
            CHECK_FALSE (blockMath ().addNoise (in.data (), state, out.data (), in.size ()));
        }

    std::array<float, 3> rounded{};
    const std::array<double, 3> y{ -0.9, 0.1, -1.5 };
    CHECK (blockMath ().roundToOutput (y.data (), rounded.data (), 2) == static_cast<double> (0.1F));
    CHECK (blockMath ().roundToOutput (y.data (), rounded.data (), 3) == 1.5);
    CHECK (rounded[0] == -0.9F);
}
