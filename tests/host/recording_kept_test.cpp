#include "audio_file.h"
#include "loaded_strip.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>

using namespace tessaly::test;
namespace fs = std::filesystem;

// What belongs to a recording stays with it, and what is wrong with one is said.

namespace
{

/// A tenth of a second of silence with all that a file can carry.
void SaveWithMetadata (const fs::path& path)
{
    SndfileHandle file (path.c_str (), SFM_WRITE, SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, 2, 48000);
    file.setString (SF_STR_TITLE, "Take 3");
    SF_BROADCAST_INFO bext{};
    std::strcpy (bext.description, "Scene 12");
    bext.time_reference_low = 172800000; // an hour at 48 kHz
    file.command (SFC_SET_BROADCAST_INFO, &bext, sizeof (bext));
    SF_CUES cues{};
    cues.cue_count = 2;
    cues.cue_points[1].indx = 2;
    cues.cue_points[1].sample_offset = 2400;
    file.command (SFC_SET_CUE, &cues, sizeof (cues));
    std::array map{ static_cast<int> (SF_CHANNEL_MAP_LEFT), static_cast<int> (SF_CHANNEL_MAP_RIGHT) };
    file.command (SFC_SET_CHANNEL_MAP_INFO, map.data (), sizeof (map));
    const std::vector<float> silence (2 * 4800, 0.0F);
    file.write (silence.data (), static_cast<sf_count_t> (silence.size ()));
}

int RunShell (const std::string& line)
{
    return std::system (("exec 2>/dev/null; " + line).c_str ()); // NOLINT: a pipe is what is tried
}

} // namespace

TEST_CASE_FIXTURE (StripRender, "Tags, time reference, cue points, channel layout and sample format stay")
{
    SaveWithMetadata (folder / "in.wav");
    RunWell ({ Path ("in.wav"), Path ("out.wav") });
    SndfileHandle out (Path ("out.wav").c_str ());
    CHECK (out.format () == (SF_FORMAT_WAVEX | SF_FORMAT_PCM_24));
    CHECK (std::string (out.getString (SF_STR_TITLE)) == "Take 3");
    SF_BROADCAST_INFO bext{};
    REQUIRE (out.command (SFC_GET_BROADCAST_INFO, &bext, sizeof (bext)) == SF_TRUE);
    CHECK (std::string (bext.description) == "Scene 12");
    CHECK (bext.time_reference_low == 172800000);
    SF_CUES cues{};
    REQUIRE (out.command (SFC_GET_CUE, &cues, sizeof (cues)) == SF_TRUE);
    CHECK (cues.cue_count == 2);
    CHECK (cues.cue_points[1].sample_offset == 2400);
    std::array<int, 2> map{};
    REQUIRE (out.command (SFC_GET_CHANNEL_MAP_INFO, map.data (), sizeof (map)) == SF_TRUE);
    CHECK (map[1] == SF_CHANNEL_MAP_RIGHT);
}

TEST_CASE_FIXTURE (StripRender, "Integers that go through a bypassed strip come back, but for the dither of 16 bits")
{
    const auto in = Load (kVoice).samples;
    RunWell ({ kVoice, Path ("plain.wav"), "--bypass", "--no-dither" });
    CHECK (Load (Path ("plain.wav")).samples == in);
    RunWell ({ kVoice, Path ("dithered.wav"), "--bypass" });
    const auto dithered = Load (Path ("dithered.wav")).samples;
    // Triangular noise of two steps' width and rounding have a variance of 1/4 step together (1/6 and 1/12).
    double squares = 0.0;
    for (std::size_t i = 0; i < in.size (); ++i)
        squares += std::pow (32768.0 * static_cast<double> (dithered[i] - in[i]), 2.0);
    CHECK (squares / static_cast<double> (in.size ()) == doctest::Approx (0.25).epsilon (0.05));
}

TEST_CASE_FIXTURE (StripRender, "A recording or a state that is cut off is refused, and rendered where that is allowed")
{
    const auto voice = ReadFile (kVoice);
    const auto cut = folder.Write ("cut.wav", voice.substr (0, voice.size () / 2)).string ();
    const auto cutFlac = folder.Write ("cut.flac", ReadFile (kDrums).substr (0, 100000)).string ();
    {
        SndfileHandle ogg (Path ("whole.ogg").c_str (), SFM_WRITE, SF_FORMAT_OGG | SF_FORMAT_VORBIS, 1, 48000);
        const auto samples = Load (kVoice).samples;
        ogg.write (samples.data (), static_cast<sf_count_t> (samples.size ()));
    }
    RunWell ({ Path ("whole.ogg"), Path ("ogg.wav") });
    RunWell ({ kVoice, Path ("whole.aiff") });
    RunWell ({ kVoice, Path ("whole.au") });
    Words files{ cut, cutFlac };
    for (const std::string name : { "ogg", "aiff", "au" })
    {
        const auto whole = ReadFile (Path ("whole." + name));
        files.push_back (folder.Write ("cut." + name, whole.substr (0, whole.size () * 2 / 3)).string ());
    }
    for (const auto& file : files)
    {
        const auto run = Run ({ file, Path ("out.wav") });
        CAPTURE (file);
        CHECK (run.exitStatus == 1);
        CHECK (Says (run.err, "is damaged"));
        const auto allowed = Run ({ file, Path ("out.wav"), "--allow-damaged", "--force" });
        CHECK (allowed.exitStatus == 0);
        CHECK (Says (allowed.err, "is damaged"));
        fs::remove (folder / "out.wav");
    }
    RunWell ({ "--save-state", Path ("a.state") });
    const auto state = ReadFile (Path ("a.state"));
    for (const std::size_t length : { 3UL, 50UL, 120UL, 811UL })
    {
        const Words words{ "--list", "--state", folder.Write ("cut.state", state.substr (0, length)).string () };
        CHECK (Run (words).exitStatus == 1);
        CHECK (Run (With (words, { "--allow-damaged" })).exitStatus == (length > 3 ? 0 : 1));
    }
}

TEST_CASE_FIXTURE (StripRender, "An MP3 file whose length is a guess is not taken for a damaged one")
{
    // One frame of silence (MPEG 1, layer III, 128 kbit/s, 48 kHz, mono: 384 bytes), many times, and half a frame.
    const std::string frame = "\xFF\xFB\x94\xC4" + std::string (380, '\0');
    std::string mp3;
    for (int i = 0; i < 100; ++i)
        mp3 += frame;
    folder.Write ("a.mp3", mp3 + frame.substr (0, 200));
    CHECK (Run ({ Path ("a.mp3"), Path ("a.wav") }).exitStatus == 0);
    CHECK (Load (Path ("a.wav")).Frames () >= 98 * 1152);
}

TEST_CASE_FIXTURE (StripRender, "Recordings go through pipes, whatever length their header tells")
{
    RunWell ({ kVoice, Path ("whole.wav") });
    const auto program = std::string (STRIP_RENDER) + " --plugin '" + TESSALY_BUNDLE + "' ";
    const auto gives = [&] (const std::string& line, bool goesWell = true)
    {
        CHECK ((RunShell (line + Path ("out.wav")) == 0) == goesWell);
        CHECK (ReadFile (Path ("out.wav")) == ReadFile (Path ("whole.wav")));
    };
    auto unknown = ReadFile (kVoice);
    const auto size = unknown.find ("data") + 4;
    for (const std::string& length : { std::string ("\xFF\xFF\xFF\xFF"), std::string ("\x00\xF0\xFF\x7F", 4) })
    {
        unknown.replace (size, 4, length);
        folder.Write ("unknown.wav", unknown);
        gives ("cat " + Path ("unknown.wav") + " | " + program + "- - | cat > ");
        gives (program + Path ("unknown.wav") + " /dev/stdout > ");
    }
    gives (program + "--save-state /dev/stdout --force >> ", false);
}

TEST_CASE ("A result that WAV has no room for becomes RF64")
{
    using namespace tessaly::render;
    const auto wav = ChooseOutputFormat ("a.wav", "float", SF_FORMAT_WAV);
    constexpr std::int64_t kFramesOfFourGigabytes = std::int64_t{ 1 } << 29;
    CHECK (WithRoomFor (wav, { 2, 48000, kFramesOfFourGigabytes / 2 }).description == "WAV, 32-bit float");
    const auto large = WithRoomFor (wav, { 2, 48000, kFramesOfFourGigabytes });
    CHECK (large.description == "RF64, 32-bit float");
    CHECK ((large.code & SF_FORMAT_TYPEMASK) == SF_FORMAT_RF64);
}
