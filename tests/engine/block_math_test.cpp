#include "block_math_versions.h"

#include "biquad_process.h"
#include "measure.h"
#include "noise_generator.h"
#include "recursions.h"

#include <array>
#include <doctest/doctest.h>
#include <limits>
#include <random>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

using Row = std::array<double, kChunkSamples>;

// A detector and five filters, stable and all different.
constexpr double kAttack = 0.002;
constexpr double kRelease = 0.0004;

Recursions anyRecursions ()
{
    const double A = 6.25 * kAttack;
    const double Ar = std::sqrt (A * 0.00018);
    Recursions r{};
    r.rise = A;
    r.fall = A / 8;
    r.approach = 2 * Ar;
    r.chord = Ar;
    r.fastestFall = -0.4 * kRelease;
    r.detected = 0.25;
    r.highPass = { 0.99, -0.99, 0.0, 0.98, 0.0 };
    r.sideChainEq = { 1.2, -1.7, 0.6, 1.7, -0.8 };
    r.low = { 1.1, -0.9, 0.0, 0.93, 0.0 };
    r.mid = { 0.9, -1.5, 0.7, 1.5, -0.6 };
    r.high = { 1.6, 0.3, 0.0, -0.4, 0.0 };
    r.highPassState = { 0.1, 0.0, 0.2, 0.0 };
    r.sideChainEqState = { 0.3, -0.4, 0.5, -0.6 };
    r.lowState = { -0.7, 0.0, 0.8, 0.0 };
    r.midState = { 0.9, 1.0, -1.1, 1.2 };
    r.highState = { -1.3, 0.0, 1.4, 0.0 };
    return r;
}

/// The detector by its squares (level_detector.h).
double detect (double detected, double level)
{
    const double A = 6.25 * kAttack;
    const double r = std::sqrt (0.00018 / A);
    const double D = level - detected;
    const auto square = [] (double x) { return x * x; };
    if (D > 0)
        return detected + std::fmin (A * square (r + D) - 0.00018, 0.925 * D);
    return detected + std::fmax (8 * (A * square (std::fmax (r + D / 8, 0.0)) - 0.00018), -0.4 * kRelease);
}

struct Stretches
{
    Row level{};
    Row sideChain{};
    Row y{};
};

double largestDifference (const Stretches& a, const Stretches& b)
{
    double largest = 0.0;
    for (const auto row : { &Stretches::level, &Stretches::sideChain, &Stretches::y })
        for (std::size_t i = 0; i < kChunkSamples; ++i)
            largest = std::fmax (largest, std::abs ((a.*row)[i] - (b.*row)[i]));
    return largest;
}

} // namespace

TEST_CASE ("BlockMath: the level of a sample is its exact logarithm to 2e-13, with a floor 30 dB below the threshold")
{
    for (const BlockMath* version : blockMathVersions ())
    {
        const BlockMath& math = *version;
        double worst = 0.0;
        for (double from = 1e-7; from < 1e9; from *= 1.9)
        {
            Row samples{};
            Row level{};
            for (std::size_t i = 0; i < samples.size (); ++i)
                samples[i] = (i % 2 == 0 ? 1.0 : -1.0) * from * (1.0 + static_cast<double> (i) / 64.0);
            math.levels (samples.data (), 1e-8, -2.0, level.data (), level.size ());
            for (std::size_t i = 0; i < samples.size (); ++i)
                worst = std::max (worst, std::abs (level[i] - (std::log10 (std::abs (samples[i])) + 2.0)));
        }
        CHECK (worst < 2e-13);

        const std::array<double, 5> edges{ 0.0316, -0.0316, 0.0315999, 0.0, 5e-324 };
        std::array<double, 5> level{};
        math.levels (edges.data (), 0.0316, 0.0, level.data (), edges.size ());
        CHECK (level[0] == Approx (std::log10 (0.0316)));
        CHECK (level[1] == level[0]);
        CHECK ((level[2] == -1.5 && level[3] == -1.5 && level[4] == -1.5));
    }
}

TEST_CASE ("BlockMath: the gain is the exact power to 2e-13, exactly 1 below the knee, and the smallest is told")
{
    for (const BlockMath* version : blockMathVersions ())
    {
        const BlockMath& math = *version;
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
                const double told = math.gains (level.data (), slope.data (), halfWidth, curvature, gain.data (), 63);
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
}

TEST_CASE ("BlockMath: the noise is the C standard's example generator around 0, however its rows are cut")
{
    for (const BlockMath* version : blockMathVersions ())
    {
        const BlockMath& math = *version;
        const std::vector<float> silence (100);
        std::vector<double> once (100);
        std::vector<double> pieces (100);
        std::uint32_t state = kNoiseSeed;
        math.addNoise (silence.data (), state, once.data (), 100);
        std::size_t position = 0;
        for (const int r : { 16838, 5758, 10113, 17515, 31051 }) // with seed 1, as many a textbook prints them
            CHECK (once[position++] == (r - 16384) * 1e-16);

        state = kNoiseSeed;
        position = 0;
        for (const std::size_t count : { 1U, 17U, 64U, 3U, 15U })
        {
            math.addNoise (silence.data (), state, pieces.data () + position, count);
            position += count;
        }
        CHECK (pieces == once);
    }
}

TEST_CASE ("BlockMath: samples that are no numbers are seen wherever they stand, and outputs are compared as meters do")
{
    for (const BlockMath* version : blockMathVersions ())
    {
        const BlockMath& math = *version;
        std::array<float, 35> in{};
        Row out{};
        std::uint32_t state = kNoiseSeed;
        in.fill (-std::numeric_limits<float>::max ());
        CHECK (math.addNoise (in.data (), state, out.data (), in.size ()));
        for (const std::size_t place : { 0U, 7U, 31U, 34U })
            for (const float bad : { std::numeric_limits<float>::infinity (), -std::numeric_limits<float>::infinity (),
                                     std::numeric_limits<float>::quiet_NaN () })
            {
                in.fill (0.5F);
                in[place] = bad;
                CHECK_FALSE (math.addNoise (in.data (), state, out.data (), in.size ()));
            }

        std::array<float, 3> rounded{};
        const std::array<double, 3> y{ -0.9, 0.1, -1.5 };
        CHECK (math.roundToOutput (y.data (), rounded.data (), 2) == static_cast<double> (0.1F));
        CHECK (math.roundToOutput (y.data (), rounded.data (), 3) == 1.5);
        CHECK (rounded[0] == -0.9F);
    }
}

TEST_CASE ("BlockMath: each recursion does beside any of the others what it does alone, in pieces of any length")
{
    std::minstd_rand random (1);
    std::uniform_real_distribution<double> anyLevel (-1.5, 1.5);
    Stretches input;
    for (std::size_t i = 0; i < kChunkSamples; ++i)
    {
        input.level[i] = anyLevel (random);
        input.sideChain[i] = anyLevel (random);
        input.y[i] = anyLevel (random);
    }
    for (const BlockMath* version : blockMathVersions ())
        for (const int parts : { 1, 2, 3, 4, 5, 6, 7 })
        {
            Recursions r = anyRecursions ();
            Stretches expected = input;
            for (std::size_t i = 0; i < kChunkSamples; ++i)
            {
                if (parts & 1)
                    expected.level[i] = r.detected = detect (r.detected, input.level[i]);
                if (parts & 2)
                    expected.sideChain[i] =
                        processBiquad (r.sideChainEq, r.sideChainEqState,
                                       processBiquad (r.highPass, r.highPassState, input.sideChain[i]));
                if (parts & 4)
                    expected.y[i] = processBiquad (
                        r.high, r.highState,
                        processBiquad (r.mid, r.midState, processBiquad (r.low, r.lowState, input.y[i])));
            }
            Recursions running = anyRecursions ();
            Stretches got = input;
            std::size_t at = 0;
            for (const std::size_t count : { 1U, 32U, 0U, 31U, 64U, 127U, 1U })
            {
                version->run (running, parts & 1 ? got.level.data () + at : nullptr,
                              parts & 2 ? got.sideChain.data () + at : nullptr,
                              parts & 4 ? got.y.data () + at : nullptr, count);
                at += count;
            }
            CHECK (at == kChunkSamples);
            CHECK (largestDifference (got, expected) < 1e-12);
        }
}
