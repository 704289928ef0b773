#pragma once

#include <cstdint>

namespace tessaly
{

/// Transport snapshot of a block, as the host gave it; all zero when the host gave none. Written and read on the audio
/// thread. Positions in samples, quarter notes (ppq) or nanoseconds; tempo in beats per minute.
struct ZTimeInfo
{
    double samplePos = 0.0;
    double sampleRate = 0.0;  // Hz
    double nanoSeconds = 0.0; // the system's clock
    double ppqPos = 0.0;
    double tempo = 0.0;
    double barStartPos = 0.0;   // ppq
    double cycleStartPos = 0.0; // ppq
    double cycleEndPos = 0.0;   // ppq
    std::int32_t timeSigNumerator = 0;
    std::int32_t timeSigDenominator = 0;
    std::int32_t smpteOffset = 0;    // subframes
    std::int32_t smpteFrameRate = 0; // frames per second
    std::int32_t samplesToNextClock = 0;
    std::int32_t flags = 0; // which fields are valid, the transport's state; bits as in the host's record
};

} // namespace tessaly
