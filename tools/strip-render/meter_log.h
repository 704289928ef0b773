#pragma once

#include "pending_file.h"

#include <fstream>
#include <span>

namespace tessaly::render
{

/// What the two meters of one instance show after a block, read off their lamps.
struct MeterReading
{
    double gainReductionDb = 0.0;    ///< 0 to 24; 24 stands for all beyond too
    double outputDb = kOutputTooLow; ///< -63 to 0 dBFS

    static constexpr double kOutputTooLow = -1000.0; ///< below the output meter's first lamp

    /// Takes in a meter's normalized value, as the plug-in puts it out.
    void SetGainReduction (double normalized);
    void SetOutput (double normalized);
};

/// A table of the meters, a line for each block: the time of its first sample in seconds, then gain reduction and
/// output in dB of each channel. An output below the meter's range is written "-inf".
class MeterLog
{
public:
    /// @throws RenderError, HostError when the file cannot be made
    MeterLog (const std::filesystem::path& file, int channels, host::Existing existing);

    void Add (double seconds, std::span<const MeterReading> channels);

    /// Puts the finished table in its place. @throws RenderError, HostError when it could not be written whole
    void Commit ();

private:
    host::PendingFile pending;
    std::ofstream out;
};

} // namespace tessaly::render
