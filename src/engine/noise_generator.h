#pragma once

#include <cstdint>

namespace tessaly
{

// White noise with peaks of -236 dB keeps the recursive filters out of denormal numbers. Its source is the 15-bit
// linear congruential generator that the C standard prints as an example of `rand`,
//     state[n] = state[n-1] * 1103515245 + 12345 (modulo 2^32),   r = state / 65536 modulo 32768
//     noise = (r - 16384) * 1e-16
// with the same seed in every instance, so that two renders are equal bit by bit and no library state is shared.

inline constexpr std::uint32_t kNoiseSeed = 1;
inline constexpr std::uint32_t kNoiseFactor = 1103515245;
inline constexpr std::uint32_t kNoiseSummand = 12345;

} // namespace tessaly
