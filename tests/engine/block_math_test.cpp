#include "block_math_versions.h"

#include "gain_computer.h"
#include "glide.h"
#include "noise_generator.h"
#include "recursions.h"
#include "strip_model.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <doctest/doctest.h>
#include <initializer_list>
#include <limits>
#include <random>
#include <utility>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

using Row = std::array<double, kChunkSamples>;

/// A detector of 25 times the attack of its release, and five filters, stable and all different.
Recursions anyRecursions ()
{
    Recursions r{};
    r.detector = { 0.0125, 0.0125 / 8, 0.003, 0.0015, -0.00016 };
    r.highPass = { 0.99, -0.99, 0.0, 0.98, 0.0 };
    r.sideChainEq.live = { 1.2, -1.7, 0.6, 1.7, -0.8 };
    r.low.live = { 1.1, -0.9, 0.0, 0.93, 0.0 };
    r.mid.live = { 0.9, -1.5, 0.7, 1.5, -0.6 };
    r.high.live = { 1.6, 0.3, 0.0, -0.4, 0.0 };
    return r;
}

bool areClose (double x, double y)
{
    return std::abs (x - y) < 1e-12;
}

} // namespace

TEST_CASE ("BlockMath: a level is the exact logarithm to 2e-13 down to its floor")
{
    for (const BlockMath* math : blockMathVersions ())
    {
        double worst = 0.0;
        for (double from = 1e-7; from < 1e9; from *= 1.9)
        {
            Row samples{};
            Row level{};
            for (std::size_t i = 0; i < samples.size (); ++i)
                samples[i] = (i % 2 == 0 ? 1.0 : -1.0) * from * (1.0 + static_cast<double> (i) / 64.0);
            math->levels (samples.data (), 1e-8, -2.0, level.data (), level.size ());
            for (std::size_t i = 0; i < samples.size (); ++i)
                worst = std::max (worst, std::abs (level[i] - (std::log10 (std::abs (samples[i])) + 2.0)));
        }
        CHECK (worst < 2e-13);

        const std::array<double, 5> edges{ 0.0316, -0.0316, 0.0315999, 0.0, 5e-324 };
        std::array<double, 5> level{};
        math->levels (edges.data (), 0.0316, 0.0, level.data (), edges.size ());
        const double atFloor = std::log10 (0.0316);
        CHECK (std::ranges::equal (level, std::array{ atFloor, atFloor, -1.5, -1.5, -1.5 }, areClose));
    }
}

TEST_CASE ("BlockMath: a gain is the exact power to 2e-13")
{
    for (const BlockMath* math : blockMathVersions ())
        for (const auto& [halfWidth, curvature] : { std::pair (1.3, 0.19231), { 0.5, 0.5 }, { 0.0, 0.0 } })
        {
            double worst = 0.0;
            for (double from = -2.0; from < 12.0; from += 0.1)
            {
                std::array<double, 63> level{};
                std::array<double, 63> slope{};
                std::array<double, 63> gain{};
                for (std::size_t i = 0; i < level.size (); ++i)
                {
                    level[i] = from + static_cast<double> (i) / 640.0;
                    slope[i] = static_cast<double> (i) / 63.0;
                }
                const double smallest =
                    math->gains (level.data (), slope.data (), { halfWidth, curvature }, gain.data (), gain.size ());
                CHECK (smallest == std::ranges::min (gain));
                for (std::size_t i = 0; i < level.size (); ++i)
                {
                    const double intoKnee = std::max (level[i] + halfWidth, 0.0);
                    const double e = level[i] > halfWidth ? level[i] : curvature * intoKnee * intoKnee;
                    worst = std::max (worst, std::abs (gain[i] * std::pow (10.0, slope[i] * e) - 1.0));
                    if (intoKnee == 0.0)
                        CHECK (gain[i] == 1.0);
                }
            }
            CHECK (worst < 2e-13);
        }
}

TEST_CASE ("BlockMath: the noise is the same in any pieces, and NaN is seen anywhere")
{
    using Limits = std::numeric_limits<float>;
    const auto noise = [] (const BlockMath& math, std::initializer_list<std::size_t> counts)
    {
        const std::array<float, 100> silence{};
        Row samples{};
        std::uint32_t state = kNoiseSeed;
        double* out = samples.data ();
        for (const std::size_t count : counts)
        {
            math.addNoise (silence.data (), state, out, count);
            out += count;
        }
        return samples;
    };
    for (const BlockMath* math : blockMathVersions ())
    {
        CHECK (noise (*math, { 1, 17, 64, 3, 15 }) == noise (blockMath (), { 100 }));
        for (const float sample : { -Limits::max (), Limits::infinity (), -Limits::infinity (), Limits::quiet_NaN () })
            for (const std::size_t place : { 0U, 7U, 31U, 34U })
            {
                std::array<float, 35> in{};
                in[place] = sample;
                Row out{};
                std::uint32_t state = kNoiseSeed;
                CHECK (math->addNoise (in.data (), state, out.data (), in.size ()) == std::isfinite (sample));
            }
    }
}

TEST_CASE ("BlockMath: the logistic weights are exact to 2e-13")
{
    for (const BlockMath* math : blockMathVersions ())
    {
        Row weight{};
        math->logistic (weight.data (), -20.0, 0.17, weight.size ());
        double worst = 0.0;
        for (std::size_t i = 0; i < weight.size (); ++i)
        {
            const double y = -20.0 + 0.17 * static_cast<double> (i);
            worst = std::max (worst, std::abs (weight[i] * (1.0 + std::exp2 (-y)) - 1.0));
        }
        CHECK (worst < 2e-13);
    }
}

TEST_CASE ("BlockMath: a glide goes the way of its recursion and lands")
{
    const GlideLaw law (48000.0);
    const double c = 1 - std::exp (-1 / 480.0);
    for (const BlockMath* math : blockMathVersions ())
        for (const double target : { -1.0, 2.0 })
        {
            Row value{};
            double current = 0.5;
            model::Glide expected{ current, target };
            double worst = 0.0;
            for (int run = 0; run < 120; ++run)
            {
                math->glide (value.data (), 61, current, target, law.beyond, law.left.data ());
                for (std::size_t i = 0; i < 61; ++i)
                    worst = std::max (worst, std::abs (value[i] - expected.Next (c)));
                current = value[60];
            }
            CHECK (worst < 1e-11);
            CHECK (current == target);
        }
}

namespace
{

std::array<Row, 3> anyInput () ///< for the detector, the side chain and the equalizer
{
    std::minstd_rand random (1);
    std::uniform_real_distribution<double> anyLevel (-1.5, 1.5);
    std::array<Row, 3> input;
    for (Row& row : input)
        for (double& x : row)
            x = anyLevel (random);
    return input;
}

/// The sections of `r` that are bits of `which` in a crossfade from a filter that was at work.
Recursions withFades (Recursions r, unsigned which, const Row& weight)
{
    unsigned bit = 1;
    for (BlendedSection* section : { &r.sideChainEq, &r.low, &r.mid, &r.high })
    {
        if (which & bit)
        {
            const bool isFirstOrder = section == &r.low || section == &r.high;
            section->fading = { 0.8, 0.2, isFirstOrder ? 0.0 : 0.3, 0.5, isFirstOrder ? 0.0 : -0.2 };
            section->fadingState = { 0.3, 0.2, -0.4, 0.6 };
            section->weight = weight.data ();
        }
        bit <<= 1;
    }
    return r;
}

/// @param parts  bits: 1 the detector, 2 the side chain, 4 the equalizer
std::array<Row, 3> run (const BlockMath& math, Recursions running, unsigned parts,
                        std::initializer_list<std::size_t> counts)
{
    std::array<Row, 3> rows = anyInput ();
    std::size_t at = 0;
    const auto stretch = [&] (std::size_t part) { return parts >> part & 1U ? &rows[part][at] : nullptr; };
    for (const std::size_t count : counts)
    {
        math.run (running, stretch (0), stretch (1), stretch (2), count);
        at += count;
    }
    return rows;
}

Row filtered (const BiquadCoefs& c, const BiquadState& before, Row row)
{
    model::Section section{ { c.c0, c.c1, c.c2, -c.c3, -c.c4 }, before.s0, before.s1, before.s2, before.s3 };
    for (double& x : row)
        x = section.Process (x);
    return row;
}

Row blended (const BlendedSection& section, const Row& x)
{
    Row y = filtered (section.live, section.liveState, x);
    const Row fading = filtered (section.fading, section.fadingState, x);
    for (std::size_t i = 0; section.weight && i < y.size (); ++i)
        y[i] = section.weight[i] * y[i] + (1 - section.weight[i]) * fading[i];
    return y;
}

} // namespace

TEST_CASE ("BlockMath: in any pieces, sections in a crossfade give the weighted sum of both filters")
{
    Row weight{};
    for (std::size_t i = 0; i < weight.size (); ++i)
        weight[i] = static_cast<double> (i) / 300.0;
    const std::array<Row, 3> input = anyInput ();
    for (unsigned fades = 0; fades < 16; ++fades)
    {
        const Recursions r = withFades (anyRecursions (), fades, weight);
        const Row detected = run (blockMath (), r, 1U, { 256 })[0];
        const Row sideChain = blended (r.sideChainEq, filtered (r.highPass, r.highPassState, input[1]));
        const Row y = blended (r.high, blended (r.mid, blended (r.low, input[2])));
        for (const BlockMath* math : blockMathVersions ())
            for (unsigned parts = 1; parts < 8; ++parts)
            {
                CAPTURE (fades);
                CAPTURE (parts);
                const std::array<Row, 3> rows = run (*math, r, parts, { 1, 32, 0, 31, 64, 128 });
                CHECK ((!(parts & 1U) || std::ranges::equal (rows[0], detected, areClose)));
                CHECK ((!(parts & 2U) || std::ranges::equal (rows[1], sideChain, areClose)));
                CHECK ((!(parts & 4U) || std::ranges::equal (rows[2], y, areClose)));
            }
    }
}
