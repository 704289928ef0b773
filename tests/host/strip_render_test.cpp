#include "loaded_strip.h"

#include <algorithm>
#include <cmath>
#include <numbers>

using namespace tessaly::test;
namespace fs = std::filesystem;

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

TEST_CASE_FIXTURE (StripRender, "Samples beyond full scale clip in an integer format and stay in a float one")
{
    Recording tone; // a second of it
    for (int i = 0; i < 48000; ++i)
        tone.samples.push_back (static_cast<float> (0.9 * std::sin (2.0 * std::numbers::pi * 100.0 * i / 48000.0)));
    Save (tone, Path ("tone.wav"));
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
