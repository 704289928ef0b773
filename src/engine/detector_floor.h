#pragma once

namespace tessaly
{

// Where the compressor's detector ends: 30 dB below the threshold.

inline constexpr double kFloorLevel = -1.5;          // log10 of an amplitude ratio
inline constexpr double kFloorDb = 20 * kFloorLevel; // dB
inline constexpr double kFloorOfThreshold = 0.0316;  // linear: 10^kFloorLevel to four decimals, not more

} // namespace tessaly
