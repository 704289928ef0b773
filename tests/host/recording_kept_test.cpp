#include "audio_file.h"
#include "loaded_strip.h"

#include <array>
#include <cmath>
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

TEST_CASE_FIXTURE (StripRender, "An Ogg file that is cut off is refused")
{
    {
        SndfileHandle ogg (Path ("whole.ogg").c_str (), SFM_WRITE, SF_FORMAT_OGG | SF_FORMAT_VORBIS, 1, 48000);
        const auto samples = Load (kVoice).samples;
        ogg.write (samples.data (), static_cast<sf_count_t> (samples.size ()));
    }
    RunWell ({ Path ("whole.ogg"), Path ("a.wav") });
    const auto whole = ReadFile (Path ("whole.ogg"));
    folder.Write ("cut.ogg", whole.substr (0, whole.size () * 2 / 3));
    CHECK (Says (Run ({ Path ("cut.ogg"), Path ("b.wav") }).err, "is damaged"));
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
