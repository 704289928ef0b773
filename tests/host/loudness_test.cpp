#include "loaded_strip.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <numbers>

using namespace tessaly::test;

namespace
{

using Json = nlohmann::json;

/// Four seconds of a stereo tone.
Recording Tone (double frequencyHz, double peak, double phase = 0.0)
{
    Recording tone{ .channels = 2 };
    for (int i = 0; i < 4 * 48000; ++i)
        tone.samples.insert (
            tone.samples.end (), 2,
            static_cast<float> (peak * std::sin (2.0 * std::numbers::pi * frequencyHz * i / 48000.0 + phase)));
    return tone;
}

} // namespace

TEST_CASE_FIXTURE (StripRender, "Loudness and true peak are those of the standards' own test tones" *
                                    doctest::skip (!TESSALY_HAS_LOUDNESS))
{
    // EBU Tech 3341, test case 1: a stereo tone of 1 kHz with peaks of -23 dBFS reads -23 LUFS.
    Save (Tone (1000.0, std::pow (10.0, -23.0 / 20.0)), Path ("tone.wav"));
    const auto tone = Json::parse (RunWell ({ Path ("tone.wav"), Path ("a.wav"), "--bypass", "--loudness", "--json" }));
    for (const char* end : { "input", "output" })
    {
        CHECK (tone[end]["integratedLufs"] == doctest::Approx (-23.0).epsilon (0.1 / 23.0));
        CHECK (tone[end]["rangeLu"] < 0.01);
        CHECK (tone[end]["peakDbfs"] == doctest::Approx (-23.0).epsilon (0.01));
        CHECK (tone[end]["seconds"] == 4.0);
    }
    // Tech 3341, test case 16: a quarter of the rate, 45 degrees off, has its peaks 3 dB above its samples.
    Save (Tone (12000.0, 0.5, std::numbers::pi / 4.0), Path ("quarter.wav"));
    const auto quarter =
        Json::parse (RunWell ({ Path ("quarter.wav"), Path ("b.wav"), "--bypass", "--loudness", "--json" }));
    CHECK (quarter["input"]["peakDbfs"] == doctest::Approx (-9.03).epsilon (0.01));
    CHECK (quarter["input"]["truePeakDbtp"] == doctest::Approx (-6.02).epsilon (0.05));
    CHECK_FALSE (Says (RunWell ({ Path ("tone.wav"), Path ("c.wav"), "--json" }), "Lufs")); // where not asked for
}

TEST_CASE_FIXTURE (StripRender, "A matched result is as loud as its recording, and silence stays as it is" *
                                    doctest::skip (!TESSALY_HAS_LOUDNESS))
{
    const Words heavy{ "--set", "Morph=90", "--set", "Drive=8", "--format", "float" };
    const auto matched =
        Json::parse (RunWell (With ({ kDrums, Path ("matched.wav"), "--match-loudness", "--json" }, heavy)));
    const double gainDb = matched["matchGainDb"];
    CHECK (std::abs (gainDb) > 0.5);
    RunWell (With ({ kDrums, Path ("plain.wav") }, heavy));
    const auto plain = Load (Path ("plain.wav")).samples;
    const auto louder = Load (Path ("matched.wav")).samples;
    REQUIRE (louder.size () == plain.size ());
    CHECK (louder[9999] == doctest::Approx (plain[9999] * std::pow (10.0, gainDb / 20.0)).epsilon (1e-5));
    const auto again =
        Json::parse (RunWell ({ Path ("matched.wav"), Path ("again.wav"), "--bypass", "--loudness", "--json" }));
    const double wanted = matched["input"]["integratedLufs"];
    CHECK (again["input"]["integratedLufs"] == doctest::Approx (wanted).epsilon (0.001));
    CHECK (again["input"]["peakDbfs"] == doctest::Approx (double (matched["output"]["peakDbfs"])).epsilon (0.001));

    Save ({ .channels = 1, .samples = std::vector<float> (48000, 0.0F) }, Path ("silence.wav"));
    const auto silent = Run ({ Path ("silence.wav"), Path ("s.wav"), "--match-loudness", "--json" });
    CHECK (silent.exitStatus == 0);
    CHECK (Says (silent.err, "is silent or shorter"));
    CHECK (Json::parse (silent.out)["input"]["integratedLufs"].is_null ());
    CHECK (Load (Path ("s.wav")).Frames () == 48000);
}

TEST_CASE_FIXTURE (StripRender, "A mix is the sum of its parts")
{
    const Words heavy{ "--set", "Morph=90", "--set", "Drive=8" };
    const auto dry = Load (kDrums).samples;
    const auto wet = Render (kDrums, "wet.wav", heavy).samples;
    const auto mixed = Render (kDrums, "mixed.wav", With (heavy, { "--mix", "25 %" })).samples;
    double error = 0.0;
    for (std::size_t i = 0; i < dry.size (); ++i)
        error = std::fmax (error, std::abs (mixed[i] - (0.75F * dry[i] + 0.25F * wet[i])));
    CHECK (error < 1e-6);
    CHECK (Render (kDrums, "none.wav", With (heavy, { "--mix", "0" })).samples == dry);
}
