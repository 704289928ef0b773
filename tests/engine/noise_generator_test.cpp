#include "noise_generator.h"

#include "block_math.h"

#include <array>
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("The noise is the C standard's sample generator, scaled to peaks of -236 dB")
{
    // The first numbers of that `rand` with a seed of 1, as printed by many a C library.
    constexpr std::array kRand{ 16838, 5758, 10113, 17515, 31051, 5627, 23010, 7419, 16212, 4086 };
    const std::array<float, kRand.size ()> silence{};
    std::array<double, kRand.size ()> noise{};
    std::uint32_t state = kNoiseSeed;
    CHECK (blockMath ().addNoise (silence.data (), state, noise.data (), noise.size ()));
    for (std::size_t i = 0; i < kRand.size (); ++i)
        CHECK (noise[i] == doctest::Approx ((kRand[i] - 16384) * 1e-16).epsilon (1e-12));
}
