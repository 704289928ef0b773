#include "audio_file.h"

#include "audio_damage.h"
#include "interrupts.h"
#include "render_error.h"

#include <algorithm>

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

} // namespace

AudioReader::AudioReader (const fs::path& of, Damage whenDamaged)
    : path (of)
    , damage (whenDamaged)
    , input (of)
{
    file.reset (sf_open_fd (input.Descriptor (), SFM_READ, &info, SF_FALSE));
    if (!file)
        throw NotAudio ("\"" + path.string () + "\" is not an audio file that can be read: " + Reason (nullptr));
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
    const std::size_t frames = std::max<std::size_t> (kSamplesAtOnce / channels, 1);
    ahead.resize (frames * channels);
    const sf_count_t count = sf_readf_float (file.get (), ahead.data (), static_cast<sf_count_t> (frames));
    framesRead += count;
    left = std::span (ahead).first (static_cast<std::size_t> (count) * channels);
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
        if (left.empty () && !ended)
            ReadAhead ();
        if (left.empty ())
            break;
        const std::size_t count = std::min (wanted - done, left.size ());
        std::copy_n (left.begin (), count, samples + done);
        left = left.subspan (count);
        done += count;
    }
    return static_cast<std::int64_t> (done) / info.channels;
}

AudioWriter::AudioWriter (const fs::path& path, const OutputFormat& format, const RecordingShape& shape,
                          const FileMetadata& metadata, bool dither)
{
    constexpr int kDitheredBits = 16; // the noise of recorded sound is above the steps of finer formats
    SF_INFO info = InfoFor (format, shape);
    file.reset (sf_open (path.string ().c_str (), SFM_WRITE, &info));
    if (!file)
        throw RenderError ("cannot write to \"" + path.parent_path ().string () + "\": " + Reason (nullptr));
    if (format.integerBits != 0)
        quantizer.emplace (format.integerBits, dither && format.integerBits == kDitheredBits);
    // The chunk of peaks holds the time of day, and two renders of one input are to be the same.
    sf_command (file.get (), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    if (ContainerOf (format) == SF_FORMAT_RF64 && shape.frames == 0)
        sf_command (file.get (), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
    WriteMetadata (file.get (), metadata);
    waiting.reserve (2 * kSamplesAtOnce);
}

void AudioWriter::Write (std::span<const float> samples)
{
    waiting.insert (waiting.end (), samples.begin (), samples.end ());
    if (waiting.size () >= kSamplesAtOnce)
        Flush ();
}

void AudioWriter::Flush ()
{
    const auto count = static_cast<sf_count_t> (waiting.size ());
    sf_count_t written = 0;
    if (quantizer)
    {
        integers.resize (waiting.size ());
        quantizer->Quantize (waiting, integers);
        written = sf_write_int (file.get (), integers.data (), count);
    }
    else
        written = sf_write_float (file.get (), waiting.data (), count);
    if (written != count)
        throw RenderError ("the output cannot be written: " + Reason (file.get ()));
    waiting.clear ();
}

void AudioWriter::Close ()
{
    Flush ();
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
