#pragma once

#include <filesystem>
#include <sndfile.hh>
#include <stdexcept>
#include <vector>

namespace tessaly::test
{

// Real recordings of Debian's packages alsa-utils and sonic-pi-samples.
inline constexpr const char* kVoice = "/usr/share/sounds/alsa/Front_Center.wav";    // mono, 48 kHz, 16 bits
inline constexpr const char* kDrums = "/usr/share/sonic-pi/samples/loop_amen.flac"; // stereo, 44.1 kHz

/// A whole audio file in memory.
struct Recording
{
    int channels = 1;
    int rateHz = 48000;
    int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    std::vector<float> samples{}; // channels in turn

    std::size_t Frames () const { return samples.size () / static_cast<std::size_t> (channels); }

    Recording Channel (int channel) const
    {
        Recording one{ 1, rateHz, format, {} };
        for (auto i = static_cast<std::size_t> (channel); i < samples.size (); i += static_cast<std::size_t> (channels))
            one.samples.push_back (samples[i]);
        return one;
    }
};

inline Recording Load (const std::filesystem::path& path)
{
    SndfileHandle file (path.c_str ());
    Recording recording{ file.channels (), file.samplerate (), file.format () };
    recording.samples.resize (static_cast<std::size_t> (file.frames () * file.channels ()));
    if (file.error () != 0 || file.readf (recording.samples.data (), file.frames ()) != file.frames ())
        throw std::runtime_error ("cannot read " + path.string ());
    return recording;
}

inline void Save (const Recording& recording, const std::filesystem::path& path)
{
    SndfileHandle file (path.c_str (), SFM_WRITE, SF_FORMAT_WAV | SF_FORMAT_FLOAT, recording.channels,
                        recording.rateHz);
    if (file.error () != 0)
        throw std::runtime_error ("cannot write " + path.string ());
    file.write (recording.samples.data (), static_cast<sf_count_t> (recording.samples.size ()));
}

} // namespace tessaly::test
