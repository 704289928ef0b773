#pragma once

#include "loudness.h"
#include "renderer.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tessaly::render
{

/// What there is to tell of the render of one file.
struct Summary
{
    std::filesystem::path input{};
    std::filesystem::path output{};
    int channels = 1;
    int sampleRateHz = 48000;
    std::int64_t inputFrames = 0;             ///< without the tail; of a dry run, those that the file tells
    std::string format{};                     ///< of the output, as "WAV, 16-bit"
    bool clips = false;                       ///< the format cuts at full scale
    RenderResult result{};                    ///< of a dry run, nothing
    std::optional<Loudness> inputLoudness{};  ///< where it was asked for, of the recording without the tail
    std::optional<Loudness> outputLoudness{}; ///< likewise, of what is in the file
    std::optional<double> matchGainDb{};      ///< by which the output was made as loud as the input
};

} // namespace tessaly::render
