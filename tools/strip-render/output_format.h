#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tessaly::render
{

/// How an output file is written.
struct OutputFormat
{
    int code = 0;            ///< libsndfile's: container and sample format
    std::string description; ///< as "WAV, 32-bit float"
    int bytesPerSample = 0;
    int integerBits = 0; ///< 16, 24 or 32; 0 for floats, which alone hold what is beyond full scale
};

/// @return why no output can have the format that is typed; empty for one that some can
std::string FormatFault (const std::string& wanted);

/// Chooses by the file's extension (wav, flac, aiff, aif, au) or as `wanted` says: a container, a sample format (16, 24,
/// 32, float, double) or both as "flac:16". Where nothing says otherwise the samples are those of the input as near as
/// the container has them, and what goes to a stream is WAV.
/// @param input  libsndfile's code of the recording
/// @param wanted  without fault
/// @throws RenderError that tells what there is to choose from
OutputFormat ChooseOutputFormat (const std::filesystem::path& file, const std::optional<std::string>& wanted,
                                 int input);

} // namespace tessaly::render
