#pragma once

#include "file_metadata.h"
#include "file_samples.h"
#include "input_file.h"
#include "output_format.h"
#include "sample_quantizer.h"
#include "sample_sink.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <sndfile.h>
#include <span>
#include <string>

namespace tessaly::render
{

struct CloseSoundFile
{
    void operator() (SNDFILE* file) const { sf_close (file); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseSoundFile>;

/// What to do with a file that ends early.
enum class Damage
{
    refuse,
    allow ///< what is there counts
};

/// A recording, read from its start to its end, a good deal at a time whatever the size of the pieces asked for.
class AudioReader
{
public:
    /// @param file  "-" is standard input
    /// @throws RenderError when there is no such file, it is not audio, or is damaged and that is not allowed
    AudioReader (const std::filesystem::path& file, Damage damage);

    int Channels () const { return info.channels; }
    int SampleRateHz () const { return info.samplerate; }
    int FormatCode () const { return info.format; } ///< libsndfile's

    /// @return the length that the file's header tells; 0 where it tells none
    std::int64_t Frames () const { return info.frames == SF_COUNT_MAX ? 0 : info.frames; }

    std::int64_t FramesRead () const { return framesRead; }

    /// @return what is missing of a damaged file that is read all the same; empty for a whole one
    const std::string& DamageFound () const { return damageFound; }

    FileMetadata Metadata () const { return ReadMetadata (file.get (), info.channels); }

    /// @param samples  receives up to `frames` frames, channels in turn; integer formats read as -1 to 1
    /// @return the frames read, fewer than asked for at the end
    /// @throws RenderError when the file is damaged, or ends before the length it tells, and that is not allowed
    std::int64_t Read (float* samples, std::int64_t frames);

private:
    void ReadAhead ();
    void Find (const std::string& fault);

    std::filesystem::path path;
    Damage damage;
    std::string damageFound;
    InputFile input;
    SF_INFO info{};
    SoundFile file; // reads from `input`
    std::int64_t framesRead = 0;
    FileSamples ahead;    // read
    std::size_t next = 0; // of them, the first still to be handed out
    std::size_t end = 0;
    bool ended = false;
};

/// What a writer is to know besides the path and the format.
struct RecordingShape
{
    int channels = 1;
    int sampleRateHz = 48000;
    std::int64_t frames = 0; ///< 0 where it is not known
};

/// A new audio file. Integer formats clip at full scale. Two files of the same samples are the same byte for byte.
class AudioWriter : public SampleSink
{
public:
    /// @throws RenderError when the file cannot be made or the format has no room for the channels, the rate or the
    /// frames
    AudioWriter (const std::filesystem::path& file, const OutputFormat& format, const RecordingShape& shape,
                 const FileMetadata& metadata, bool dither);

    void Write (std::span<const float> samples) override;

    /// @throws RenderError when the last of the data does not reach the file
    void Close ();

    /// What of the metadata the format has no room for, in words; empty for nothing.
    const std::string& LeftOut () const { return leftOut; }

    /// How much an integer format has cut off; null for the others.
    const SampleQuantizer* Clipping () const { return quantizer ? &*quantizer : nullptr; }

private:
    void Flush ();

    SoundFile file;
    std::string leftOut;
    std::optional<SampleQuantizer> quantizer;
    FileSamples waiting; // the first of them for the next write to the file
    std::size_t waitingCount = 0;
    bool hasSamples = false; // in the file
};

/// The format, or RF64 in the place of WAV where the file comes to four gigabytes. Where the length is not known it is
/// RF64 as well, and turns into WAV at its end unless it has become as long; it is described as WAV.
OutputFormat WithRoomFor (OutputFormat format, const RecordingShape& shape);

} // namespace tessaly::render
