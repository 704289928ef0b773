#include "block_pace.h"

#include <algorithm>

namespace tessaly::ardour
{

namespace
{

constexpr double kBurstBlocks = 4.0; // more than a burst of playback
constexpr double kFadeBlocks = 20.0; // so that playback's jitter does not add up
constexpr double kSecondsPerNs = 1e-9;

} // namespace

void BlockPace::Reset (double rateHz, std::int32_t maxBlockSize)
{
    rate = rateHz;
    longestBlock = rateHz > 0.0 ? static_cast<double> (maxBlockSize) / rateHz : 0.0;
    Restart ();
}

void BlockPace::Restart ()
{
    ahead = 0.0;
    lastNs = 0;
}

bool BlockPace::IsAhead (std::int32_t samples, std::int64_t nowNs)
{
    if (rate <= 0.0 || longestBlock <= 0.0 || samples <= 0)
        return false;
    const double length = static_cast<double> (samples) / rate;
    const double passed = lastNs != 0 ? static_cast<double> (nowNs - lastNs) * kSecondsPerNs : length;
    lastNs = nowNs;
    const double kept = std::max (0.0, 1.0 - length / (kFadeBlocks * longestBlock));
    ahead = std::clamp (ahead * kept + length - passed, 0.0, 2.0 * kBurstBlocks * longestBlock);
    return ahead > kBurstBlocks * longestBlock;
}

} // namespace tessaly::ardour
