#include "audio_file.h"

#include "interrupts.h"
#include "render_error.h"

#include <string>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

/// libsndfile ends its messages in a full stop.
std::string Reason (SNDFILE* file)
{
    std::string reason = sf_strerror (file);
    while (!reason.empty () && (reason.back () == '.' || reason.back () == '\n'))
        reason.pop_back ();
    return reason;
}

std::int64_t LargestFileOf (const OutputFormat& format)
{
    constexpr std::int64_t kRoomForHeaders = 1 << 16;
    constexpr std::int64_t kFourGigabytes = std::int64_t{ 1 } << 32; // sizes in WAV and AIFF are 32-bit
    const bool isFlac = (format.code & SF_FORMAT_TYPEMASK) == SF_FORMAT_FLAC;
    return isFlac ? INT64_MAX : kFourGigabytes - kRoomForHeaders;
}

} // namespace

AudioReader::AudioReader (const fs::path& of)
    : path (of)
{
    std::error_code ignored;
    if (!fs::exists (path, ignored))
        throw RenderError ("no such file: \"" + path.string () + "\"");
    if (fs::is_directory (path, ignored))
        throw RenderError ("\"" + path.string () + "\" is a folder, not an audio file");
    file.reset (sf_open (path.c_str (), SFM_READ, &info));
    ThrowIfInterrupted (); // opening a pipe waits for its other end
    if (!file)
        throw RenderError ("\"" + path.string () + "\" is not an audio file that can be read: " + Reason (nullptr));
}

std::int64_t AudioReader::Read (float* samples, std::int64_t frames)
{
    const std::int64_t count = sf_readf_float (file.get (), samples, frames);
    framesRead += count;
    ThrowIfInterrupted (); // ahead of the complaint that the file ends early
    if (sf_error (file.get ()) != SF_ERR_NO_ERROR)
        throw RenderError ("\"" + path.string () + "\" cannot be read on: " + Reason (file.get ()));
    if (count < frames && framesRead < Frames ())
        throw RenderError ("\"" + path.string () + "\" ends after " + std::to_string (framesRead) + " of " +
                           std::to_string (info.frames) + " frames; the file is damaged");
    return count;
}

AudioWriter::AudioWriter (const fs::path& path, const OutputFormat& format, int channels, int sampleRateHz,
                          std::int64_t frames)
{
    SF_INFO info{};
    info.format = format.code;
    info.channels = channels;
    info.samplerate = sampleRateHz;
    if (!sf_format_check (&info))
        throw RenderError (format.description + " has no room for " + std::to_string (channels) + " channels at " +
                           std::to_string (sampleRateHz) + " Hz");
    if (frames > LargestFileOf (format) / (std::int64_t{ format.bytesPerSample } * channels))
        throw RenderError ("the result is longer than a file of " + format.description + " can be; use --format flac");
    file.reset (sf_open (path.c_str (), SFM_WRITE, &info));
    if (!file)
        throw RenderError ("cannot write to \"" + path.parent_path ().string () + "\": " + Reason (nullptr));
    sf_command (file.get (), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    // The chunk of peaks holds the time of day, and two renders of one input are to be the same.
    sf_command (file.get (), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
}

void AudioWriter::Write (const float* samples, std::int64_t frames)
{
    if (sf_writef_float (file.get (), samples, frames) != frames)
        throw RenderError ("the output cannot be written: " + Reason (file.get ()));
}

void AudioWriter::Close ()
{
    sf_write_sync (file.get ());
    if (sf_error (file.get ()) != SF_ERR_NO_ERROR)
        throw RenderError ("the output cannot be written: " + Reason (file.get ()));
    if (sf_close (file.release ()) != SF_ERR_NO_ERROR)
        throw RenderError ("the output cannot be finished");
}

} // namespace tessaly::render
