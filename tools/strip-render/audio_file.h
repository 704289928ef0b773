#pragma once

#include "output_format.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <sndfile.h>

namespace tessaly::render
{

struct CloseSoundFile
{
    void operator() (SNDFILE* file) const { sf_close (file); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseSoundFile>;

/// A recording, read from its start to its end.
class AudioReader
{
public:
    /// @throws RenderError when there is no such file or it is not audio
    explicit AudioReader (const std::filesystem::path& file);

    int Channels () const { return info.channels; }
    int SampleRateHz () const { return info.samplerate; }

    /// @return the length that the file's header tells; 0 where it tells none
    std::int64_t Frames () const { return info.frames == SF_COUNT_MAX ? 0 : info.frames; }

    std::int64_t FramesRead () const { return framesRead; }

    /// @param samples  receives up to `frames` frames, channels in turn; integer formats read as -1 to 1
    /// @return the frames read, fewer than asked for at the end
    /// @throws RenderError when the file is damaged or ends before the length it tells
    std::int64_t Read (float* samples, std::int64_t frames);

private:
    std::filesystem::path path;
    SF_INFO info{};
    SoundFile file;
    std::int64_t framesRead = 0;
};

/// A new audio file. Integer formats clip at full scale. Two files of the same samples are the same byte for byte.
class AudioWriter
{
public:
    /// @throws RenderError when the file cannot be made or the format has no room for the channels, the rate or
    /// `frames`
    AudioWriter (const std::filesystem::path& file, const OutputFormat& format, int channels, int sampleRateHz,
                 std::int64_t frames);

    /// @param samples  `frames` frames, channels in turn
    /// @throws RenderError when not all of them can be written
    void Write (const float* samples, std::int64_t frames);

    /// @throws RenderError when the last of the data does not reach the file
    void Close ();

private:
    SoundFile file;
};

} // namespace tessaly::render
