#include "audio_file.h"

#include "audio_damage.h"
#include "interrupts.h"
#include "open_files.h"
#include "render_error.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

constexpr std::size_t kSamplesAtOnce = 1 << 16; // a block by itself would be a call of the system each

/// libsndfile ends its messages in a full stop.
std::string Reason (SNDFILE* file)
{
    std::string reason = sf_strerror (file);
    while (!reason.empty () && (reason.back () == '.' || reason.back () == '\n'))
        reason.pop_back ();
    return reason;
}

/// Why a file could not be opened libsndfile keeps for all threads in one place: one of them at a time.
std::mutex opening;

int ContainerOf (const OutputFormat& format)
{
    return format.code & SF_FORMAT_TYPEMASK;
}

bool HasLimit (const OutputFormat& format)
{
    const int container = ContainerOf (format);
    return container != SF_FORMAT_FLAC && container != SF_FORMAT_RF64;
}

/// Sizes in WAV, AIFF and AU are 32-bit.
bool IsTooLong (const OutputFormat& format, const RecordingShape& shape)
{
    constexpr std::int64_t kRoomForHeaders = 1 << 16;
    constexpr std::int64_t kLargest = (std::int64_t{ 1 } << 32) - kRoomForHeaders;
    return HasLimit (format) && shape.frames > kLargest / (std::int64_t{ format.bytesPerSample } * shape.channels);
}

SF_INFO InfoFor (const OutputFormat& format, const RecordingShape& shape)
{
    SF_INFO info{};
    info.format = format.code;
    info.channels = shape.channels;
    info.samplerate = shape.sampleRateHz;
    if (!sf_format_check (&info))
        throw RenderError (format.description + " has no room for " + std::to_string (shape.channels) +
                           " channels at " + std::to_string (shape.sampleRateHz) + " Hz");
    if (IsTooLong (format, shape))
        throw RenderError ("the result is longer than a file of " + format.description +
                           " can be; use --format flac or wav");
    return info;
}

std::size_t FramesAtOnce (int channels)
{
    return std::max<std::size_t> (kSamplesAtOnce / static_cast<std::size_t> (channels), 1);
}

void Fill (std::optional<SampleQuantizer>&, std::span<const float> samples, std::span<float> out)
{
    std::ranges::copy (samples, out.begin ());
}

void Fill (std::optional<SampleQuantizer>& quantizer, std::span<const float> samples, std::span<Packed24> out)
{
    std::array<int, 1024> piece{};
    for (std::size_t done = 0; done < samples.size (); done += piece.size ())
    {
        const std::size_t count = std::min (piece.size (), samples.size () - done);
        quantizer->Quantize (samples.subspan (done, count), std::span (piece).first (count));
        Pack (std::span (piece).first (count), out.subspan (done, count));
    }
}

template <typename Step>
void Fill (std::optional<SampleQuantizer>& quantizer, std::span<const float> samples, std::span<Step> out)
{
    quantizer->Quantize (samples, out);
}

} // namespace

AudioReader::AudioReader (const fs::path& of, Damage whenDamaged)
    : path (of)
    , damage (whenDamaged)
    , input (of)
{
    // libsndfile closes what it fails to open, whatever it is told; by then the number may be another thread's file.
    const int descriptor = tools::Duplicate (input.Descriptor ());
    {
        const std::scoped_lock alone (opening);
        file.reset (sf_open_fd (descriptor, SFM_READ, &info, SF_TRUE));
        if (!file)
            throw NotAudio ("\"" + path.string () + "\" is not an audio file that can be read: " + Reason (nullptr));
    }
    if (info.frames == 0 && IsUnfinished (input))
        throw RenderError ("\"" + path.string () +
                           "\" is damaged: its header was not finished and tells of no audio, though more follows");
    ahead = SamplesToRead (info.format);
    Resize (ahead, FramesAtOnce (info.channels) * static_cast<std::size_t> (info.channels));
    if (const auto fault = AudioDamage (input); !fault.empty ())
        Find (fault);
}

void AudioReader::Find (const std::string& fault)
{
    if (damage == Damage::refuse)
        throw RenderError ("\"" + path.string () + "\" is damaged: " + fault +
                           "; --allow-damaged renders what is there");
    damageFound = fault;
}

void AudioReader::ReadAhead ()
{
    const auto channels = static_cast<std::size_t> (info.channels);
    const std::size_t frames = FramesAtOnce (info.channels);
    const sf_count_t count = ReadFrames (file.get (), ahead, frames, channels);
    framesRead += count;
    next = 0;
    end = static_cast<std::size_t> (count) * channels;
    ended = static_cast<std::size_t> (count) < frames;
    ThrowIfInterrupted (); // ahead of the complaint that the file ends early
    if (sf_error (file.get ()) != SF_ERR_NO_ERROR)
        Find ("it cannot be read on: " + Reason (file.get ()));
    else if (ended && framesRead < Frames () && !IsLengthGuessed (input))
        Find ("it ends after " + std::to_string (framesRead) + " of " + std::to_string (info.frames) + " frames");
}

std::int64_t AudioReader::Read (float* samples, std::int64_t frames)
{
    const auto wanted = static_cast<std::size_t> (frames * info.channels);
    std::size_t done = 0;
    while (done < wanted)
    {
        if (next == end && !ended)
            ReadAhead ();
        if (next == end)
            break;
        const std::size_t count = std::min (wanted - done, end - next);
        ToFloats (ahead, next, std::span (samples + done, count));
        next += count;
        done += count;
    }
    return static_cast<std::int64_t> (done) / info.channels;
}

AudioWriter::AudioWriter (const fs::path& path, const OutputFormat& format, const RecordingShape& shape,
                          const FileMetadata& metadata, bool dither)
{
    constexpr int kDitheredBits = 16; // the noise of recorded sound is above the steps of finer formats
    SF_INFO info = InfoFor (format, shape);
    {
        const std::scoped_lock alone (opening);
        file.reset (sf_open (path.string ().c_str (), SFM_WRITE, &info));
        if (!file)
            throw RenderError ("cannot write to \"" + path.parent_path ().string () + "\": " + Reason (nullptr));
    }
    if (format.integerBits != 0)
        quantizer.emplace (format.integerBits, dither && format.integerBits == kDitheredBits);
    // The chunk of peaks holds the time of day, and two renders of one input are to be the same.
    sf_command (file.get (), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    if (ContainerOf (format) == SF_FORMAT_RF64 && shape.frames == 0)
        sf_command (file.get (), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
    leftOut = WriteMetadata (file.get (), info.format, metadata);
    waiting = SamplesToWrite (info.format, format.integerBits);
    Resize (waiting, FramesAtOnce (shape.channels) * static_cast<std::size_t> (shape.channels));
}

void AudioWriter::Write (std::span<const float> samples)
{
    const auto fill = [&] (auto& list)
    {
        const std::size_t count = std::min (list.size () - waitingCount, samples.size ());
        Fill (quantizer, samples.first (count), std::span (list).subspan (waitingCount, count));
        samples = samples.subspan (count);
        waitingCount += count;
        return waitingCount == list.size ();
    };
    while (!samples.empty ())
        if (std::visit (fill, waiting))
            Flush ();
}

void AudioWriter::Flush ()
{
    if (!WriteFirst (file.get (), waiting, waitingCount))
        throw RenderError ("the output cannot be written: " + Reason (file.get ()));
    hasSamples = hasSamples || waitingCount > 0;
    waitingCount = 0;
}

void AudioWriter::Close ()
{
    Flush ();
    if (!hasSamples) // FLAC writes its header with the first of them
        sf_command (file.get (), SFC_UPDATE_HEADER_NOW, nullptr, 0);
    sf_write_sync (file.get ());
    if (sf_error (file.get ()) != SF_ERR_NO_ERROR)
        throw RenderError ("the output cannot be written: " + Reason (file.get ()));
    if (sf_close (file.release ()) != SF_ERR_NO_ERROR)
        throw RenderError ("the output cannot be finished");
}

OutputFormat WithRoomFor (OutputFormat format, const RecordingShape& shape)
{
    const int container = ContainerOf (format);
    const bool isWav = container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX;
    if (!isWav || (shape.frames != 0 && !IsTooLong (format, shape)))
        return format;
    format.code = (format.code & ~SF_FORMAT_TYPEMASK) | SF_FORMAT_RF64;
    if (shape.frames != 0)
        format.description.replace (0, 3, "RF64");
    return format;
}

} // namespace tessaly::render
