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
    bool clips = false; ///< holds nothing beyond full scale
};

/// Chooses by the file's extension (wav, flac, aiff, aif) or as `wanted` says: a container, a sample format (16, 24,
/// 32, float, double) or both as "flac:16". Where nothing says otherwise WAV and AIFF hold 32-bit floats, FLAC 24 bits.
/// @throws RenderError that tells what there is to choose from
OutputFormat ChooseOutputFormat (const std::filesystem::path& file, const std::optional<std::string>& wanted);

} // namespace tessaly::render
