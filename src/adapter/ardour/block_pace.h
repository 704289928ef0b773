#pragma once

#include <cstdint>

namespace tessaly::ardour
{

/// Tells a bounce that runs faster than the clock from playback, whatever mode the host names: by how far the audio of
/// the blocks is ahead of the time that has passed. Playback comes in bursts of a few blocks, so up to four of the
/// longest ones are nothing; a bounce at many times the speed is found in its fifth block. Audio thread.
class BlockPace
{
public:
    void Reset (double rateHz, std::int32_t maxBlockSize); ///< any thread, no block running

    void Restart (); ///< the next block is the first

    /// Called once a block. @param nowNs  of a steady clock
    /// @return true if this block comes faster than it can be played
    bool IsAhead (std::int32_t samples, std::int64_t nowNs);

private:
    double rate = 0.0;         // Hz; 0: not set up
    double longestBlock = 0.0; // seconds
    double ahead = 0.0;        // seconds of audio beyond the time passed, fading over twenty of the longest blocks
    std::int64_t lastNs = 0;   // 0: no block yet
};

} // namespace tessaly::ardour
