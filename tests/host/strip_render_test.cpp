#include "loaded_strip.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <numbers>
#include <signal.h>
#include <sstream>
#include <thread>
#include <tuple>

using namespace tessaly::test;
namespace fs = std::filesystem;

namespace
{

/// A second of a tone.
Recording Sine (double frequencyHz, double peak)
{
    Recording sine;
    for (int i = 0; i < 48000; ++i)
        sine.samples.push_back (
            static_cast<float> (peak * std::sin (2.0 * std::numbers::pi * frequencyHz * i / 48000.0)));
    return sine;
}

std::vector<std::string> Lines (const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in (text);
    for (std::string line; std::getline (in, line);)
        lines.push_back (line);
    return lines;
}

} // namespace

TEST_CASE_FIXTURE (StripRender, "Both roads of a setting give the same audio, before the first sample and within")
{
    folder.Write ("moves.csv", "time,parameter,value\n0.2003,Morph,90\n0.2003,Mid G,-6\n0.71,Total Gain,-3\n"
                               "0.9,Knee,Hard\n1.1,Bypass,On\n");
    for (const Words& settings :
         { Words{ "--set", "Morph=47", "--set", "Mid F=2k", "--set", "Attack=1.5", "--set", "Drive=8" },
           Words{ "--set", "Drive=8", "--automate", Path ("moves.csv") },
           Words{ "--set", "Mid F=1k", "--set", "Morph=30", "--set", "Mid F=4k", "--block", "64" } })
    {
        Render (kDrums, "offline.wav", settings);
        Render (kDrums, "realtime.wav", With (settings, { "--realtime" }));
        CHECK (ReadFile (Path ("offline.wav")) == ReadFile (Path ("realtime.wav")));
    }
}

TEST_CASE_FIXTURE (StripRender, "Automation takes effect at its sample, whatever the block size")
{
    // This switch has neither glide nor crossfade: the gain jumps at the very sample.
    folder.Write ("moves.csv", "0.5,Compressor Bypass,On\n");
    const Words loud{ "--set", "Drive=10", "--set", "Equalizer Bypass=Off" };
    const Recording still = Render (kVoice, "still.wav", loud);
    // A glide that is computed in other pieces may round its last bit otherwise, some 1e-17 of full scale.
    const auto same = [] (float a, float b) { return std::abs (a - b) < 1e-7f; };
    std::vector<float> first;
    for (const std::string block : { "1", "37", "512", "65536" })
    {
        const Recording moved =
            Render (kVoice, "moved.wav", With (loud, { "--automate", Path ("moves.csv"), "--block", block }));
        const auto [a, b] = std::ranges::mismatch (still.samples, moved.samples, same);
        CHECK (a - still.samples.begin () == 24000);
        if (first.empty ())
            first = moved.samples;
        CHECK (std::ranges::equal (moved.samples, first, same));
    }
}

TEST_CASE_FIXTURE (StripRender, "Each channel goes through an instance of its own, and two renders are the same")
{
    const Recording drums = Load (kDrums);
    const Words settings{ "--set", "Morph=75", "--set", "Drive=8" };
    const Recording both = Render (kDrums, "both.wav", settings);
    REQUIRE (both.channels == 2);
    for (const int channel : { 0, 1 })
    {
        Save (drums.Channel (channel), Path ("one.wav"));
        CHECK (Render (Path ("one.wav"), "one out.wav", settings).samples == both.Channel (channel).samples);
    }
}

TEST_CASE_FIXTURE (StripRender, "The tail is silence run through the strip, for a time or as long as the strip sounds")
{
    const std::size_t frames = Load (kVoice).Frames ();
    CHECK (Render (kVoice, "half.wav", { "--tail", "0.5" }).Frames () == frames + 24000);
    CHECK (Render (kVoice, "full.wav", { "--tail", "full" }).Frames () == frames + 7 * 48000);
    Save ({ .channels = 2 }, Path ("empty.wav"));
    CHECK (Render (Path ("empty.wav"), "out.wav").Frames () == 0);
    CHECK (Render (Path ("empty.wav"), "tail.wav", { "--tail", "0.01" }).Frames () == 480);
}

TEST_CASE_FIXTURE (StripRender, "The meters are written a line a block, in dB of each channel")
{
    Render (kDrums, "out.wav", { "--set", "Drive=10", "--block", "1000", "--meters", Path ("meters.csv") });
    const auto lines = Lines (ReadFile (Path ("meters.csv")));
    const std::size_t frames = Load (kDrums).Frames ();
    REQUIRE (lines.size () == 1 + (frames + 999) / 1000);
    CHECK (lines[0] == "time_s,gain_reduction_db_1,output_db_1,gain_reduction_db_2,output_db_2");
    double second = 0.0;
    double reductionDb = 0.0;
    CHECK (std::sscanf (lines[3].c_str (), "%lf,%lf", &second, &reductionDb) == 2);
    CHECK (second == doctest::Approx (2000.0 / 44100.0).epsilon (1e-4));
    CHECK (reductionDb > 3.0);
}

TEST_CASE_FIXTURE (StripRender,
                   "Bypass lets a tone through, and the summary tells files, levels and the largest gain reduction")
{
    Save (Sine (1000.0, 0.5), Path ("tone.wav")); // -6.02 dBFS, a sine's RMS 3.01 dB below
    CHECK (RunWell ({ Path ("tone.wav"), Path ("out.wav"), "--bypass" }) ==
           "Input:   " + Path ("tone.wav") +
               "\n         1 channel, 48000 Hz, 1.000 s\n"
               "         peak -6.02 dBFS, RMS -9.03 dBFS\n"
               "Output:  " +
               Path ("out.wav") +
               "\n         WAV, 32-bit float, 1.000 s\n"
               "         peak -6.02 dBFS, RMS -9.03 dBFS\n"
               "Largest gain reduction: 0.0 dB\n");
}

TEST_CASE_FIXTURE (StripRender, "The format follows the extension and the input's samples unless told otherwise")
{
    Save (Sine (1000.0, 0.5), Path ("float.wav"));
    for (const auto& [input, output, told, format] :
         { std::tuple{ std::string (kVoice), "b.flac", Words{}, SF_FORMAT_FLAC | SF_FORMAT_PCM_16 },
           { kVoice, "b.aif", {}, SF_FORMAT_AIFF | SF_FORMAT_PCM_16 },
           { Path ("float.wav"), "b.wav", {}, SF_FORMAT_WAV | SF_FORMAT_FLOAT },
           { Path ("float.wav"), "c.flac", {}, SF_FORMAT_FLAC | SF_FORMAT_PCM_24 },
           { kVoice, "a.wav", { "--format", "16" }, SF_FORMAT_WAV | SF_FORMAT_PCM_16 },
           { kVoice, "noextension", { "--format", "flac:16" }, SF_FORMAT_FLAC | SF_FORMAT_PCM_16 } })
    {
        RunWell (With ({ input, Path (output) }, told));
        CHECK ((Load (Path (output)).format & (SF_FORMAT_TYPEMASK | SF_FORMAT_SUBMASK)) == format);
    }
}

TEST_CASE_FIXTURE (StripRender, "Samples beyond full scale clip in an integer format and stay in a float one")
{
    Save (Sine (100.0, 0.9), Path ("tone.wav"));
    const Words hot{ "--set", "Compressor Bypass=On", "--set", "Low G=0", "--set", "Mid G=0", "--set", "High G=0",
                     "--set", "Total Gain=12" };
    const Recording whole = Render (Path ("tone.wav"), "float.wav", hot);
    const Words cut = With ({ Path ("tone.wav"), Path ("int.wav"), "--format", "wav:16", "--no-dither" }, hot);
    CHECK (Run (With (cut, { "--fail-on-clip" })).exitStatus == 1);
    CHECK_FALSE (fs::exists (folder / "int.wav"));
    const auto run = Run (cut);
    CHECK (run.exitStatus == 0);
    CHECK (Says (run.err, "samples of the result are cut at full scale, by up to 11.08 dB")); // 0.9 by 12 dB
    const Recording clipped = Load (Path ("int.wav"));
    CHECK (std::ranges::max (whole.samples) == doctest::Approx (0.9 * std::pow (10.0, 12.0 / 20.0)).epsilon (1e-3));
    double error = 0.0;
    for (std::size_t i = 0; i < whole.samples.size (); ++i)
        error = std::fmax (error, std::abs (std::clamp (whole.samples[i], -1.0F, 1.0F) - clipped.samples[i]));
    CHECK (error <= 1.0 / 32768.0); // the last step below full scale
}

TEST_CASE_FIXTURE (StripRender, "The list shows every parameter with range, unit, default and present text")
{
    const auto lines = Lines (RunWell ({ "--list", "--set", "Mid F=2k" }));
    REQUIRE (lines.size () == 1 + kParameterCount + 2);
    std::istringstream midF (lines[1 + 12]);
    // A new instance holds the first key point of the built-in set, whose steps are the defaults too.
    CHECK (Words (std::istream_iterator<std::string> (midF), {}) ==
           Words{ "Mid", "F", "20.0", "to", "20.0k", "Hz", "1.00k", "2.00k" });
    CHECK (Says (lines[1 + 4], "Soft, Middle, Hard"));
    CHECK (lines.back ().starts_with ("VU  "));
}

TEST_CASE_FIXTURE (StripRender, "A mistake ends with status 1, one clear line and no file")
{
    folder.Write ("text.wav", "no audio in here");
    folder.Write ("moves.csv", "0,Mid F,loud\n");
    folder.Write ("other.vstpreset", "VST3 or so");
    fs::create_directory (folder / "folder");
    const std::size_t before = folder.FileCount ();
    const std::string out = Path ("out.wav");

    const std::vector<std::pair<Words, std::string>> mistakes{
        { { Path ("nowhere.wav"), out }, "no such file: \"" + Path ("nowhere.wav") + "\"" },
        { { Path ("text.wav"), out }, "is not an audio file" },
        { { kVoice, Path ("folder") + "/", "--format", "wav" }, "is a folder, not a file to write" },
        { { kVoice, Path ("nofolder/out.wav") }, "there is no folder \"" + Path ("nofolder") + "\"" },
        { { kVoice, Path ("out.xyz") }, "does not tell a format" },
        { { kVoice, out, "--format", "flac:float" }, "FLAC does not hold 32-bit float samples" },
        { { kVoice, out, "--automate", Path ("moves.csv") }, Path ("moves.csv") + ", line 1: \"loud\" is no value" },
        { { kVoice, out, "--meters", kVoice }, "--meters would write over" },
        { { kVoice, out, "--save-state", out }, "--save-state would write over" },
        { { kVoice, out, "--state", Path ("other.vstpreset") }, "damaged preset" },
        { { "--save-state", Path ("nofolder/a.bin") }, "nofolder" },
    };
    for (const auto& [arguments, message] : mistakes)
    {
        const auto run = Run (arguments);
        INFO (message << " / " << run.err);
        CHECK (run.exitStatus == 1);
        CHECK (run.err.starts_with ("strip-render: "));
        CHECK (Says (run.err, message));
        CHECK (Lines (run.err).size () == 1);
        CHECK (run.out.empty ());
        CHECK (folder.FileCount () == before);
    }
}

TEST_CASE ("A mistake in the command line itself ends with a status of its own")
{
    for (const Words& arguments :
         { Words{ "in.wav" }, Words{ "in.wav", "out.wav", "--block", "0" },
           Words{ "in.wav", "out.wav", "--tail", "-1" }, Words{ "in.wav", "out.wav", "--set", "Morph" },
           Words{ "in.wav", "--save-state", "a.bin" }, Words{ "--nonsense" }, Words{ "--list", "in.wav", "out.wav" } })
    {
        const auto run = RunProgram (STRIP_RENDER, arguments);
        CHECK (run.exitStatus == 2);
        CHECK_FALSE (run.err.empty ());
    }
    CHECK (RunProgram (STRIP_RENDER, { "--help" }).exitStatus == 0);
    CHECK (RunProgram (STRIP_RENDER, { "--version" }).out == "1.1.2.4\n");
}

TEST_CASE_FIXTURE (StripRender, "An output that is there is replaced when told to, and when the new one is whole")
{
    folder.Write ("out.wav", "precious");
    CHECK (Says (Run ({ kVoice, Path ("out.wav") }).err, "--force"));
    CHECK (Run ({ kVoice, Path ("out.wav"), "--force", "--set", "Knee=Medium" }).exitStatus == 1);
    CHECK (Run ({ kVoice, Path ("out.wav"), "--force", "--dry-run" }).exitStatus == 0);
    CHECK (ReadFile (Path ("out.wav")) == "precious");

    constexpr auto kOwnersOnly = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions (folder / "out.wav", kOwnersOnly);
    fs::create_symlink (folder / "out.wav", folder / "link.wav");
    const auto rendered = Render (kVoice, "link.wav").samples;
    CHECK (fs::is_symlink (folder / "link.wav"));
    CHECK (fs::status (folder / "out.wav").permissions () == kOwnersOnly);
    CHECK (Load (Path ("out.wav")).samples == rendered);
    CHECK (folder.FileCount () == 2);
}

TEST_CASE_FIXTURE (StripRender, "No input is written over, under any of its names, told to or not")
{
    fs::copy_file (kVoice, folder / "voice.wav");
    fs::create_symlink (folder / "voice.wav", folder / "link.wav");
    fs::create_hard_link (folder / "voice.wav", folder / "twin.wav");
    RunWell ({ "--save-state", Path ("a.vstpreset") });
    const auto state = ReadFile (Path ("a.vstpreset"));
    for (const auto& words : std::vector<Words>{
             { Path ("voice.wav"), Path ("voice.wav") },
             { Path ("voice.wav"), Path ("link.wav") },
             { Path ("link.wav"), Path ("twin.wav") },
             { kVoice, Path ("a.vstpreset"), "--format", "wav", "--state", Path ("a.vstpreset") },
             { "--state", Path ("a.vstpreset"), "--save-state", (folder / "./a.vstpreset").string () } })
    {
        const auto run = Run (With (words, { "--force" }));
        CHECK (run.exitStatus == 1);
        CHECK (Says (run.err, "would write over"));
    }
    CHECK (ReadFile (Path ("voice.wav")) == ReadFile (kVoice));
    CHECK (ReadFile (Path ("a.vstpreset")) == state);
}

TEST_CASE_FIXTURE (StripRender, "A signal ends the render with the shell's status for it and leaves nothing behind")
{
    for (const int signalNumber : { SIGINT, SIGTERM, SIGHUP })
    {
        // Half an hour of tail: it does not end by itself meanwhile.
        const RunningProgram running (STRIP_RENDER, { kVoice, Path ("out.wav"), "--tail", "1800", "--meters",
                                                      Path ("meters.csv"), "--plugin", TESSALY_BUNDLE });
        for (int i = 0; i < 60000 && folder.FileCount () < 2; ++i)
            std::this_thread::sleep_for (std::chrono::milliseconds (1));
        ::kill (running.Id (), signalNumber);
        CHECK (running.Wait () == 128 + signalNumber);
        CHECK (folder.FileCount () == 0);
    }
}
