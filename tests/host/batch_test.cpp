#include "loaded_strip.h"

#include <filesystem>
#include <nlohmann/json.hpp>

using namespace tessaly::test;
namespace fs = std::filesystem;

TEST_CASE_FIXTURE (StripRender, "A batch mirrors folders, goes on after what fails, and takes up where it was stopped")
{
    fs::create_directories (folder / "in/drums");
    for (const char* name : { "a.wav", "b.wav", "c.wav", "d.wav" })
        fs::copy_file (kVoice, folder / "in" / name);
    fs::copy_file (kDrums, folder / "in/drums/loop.flac");
    folder.Write ("in/notes.txt", "no audio");
    folder.Write ("in/cut.wav", ReadFile (kVoice).substr (0, 20000));
    RunWell ({ kVoice, Path ("voice.wav") });
    RunWell ({ kDrums, Path ("loop.flac") });

    const Words batch{ Path ("in"), "--out-dir", Path ("out"), "--recursive", "--jobs", "3" };
    const auto run = Run (batch);
    CHECK (run.exitStatus == 1);
    CHECK (run.out == "5 rendered, 0 there already, 1 no audio, 1 failed\n");
    CHECK (Says (run.err, "no audio: \"" + Path ("in/notes.txt") + "\""));
    CHECK (Says (run.err, "failed: \"" + Path ("in/cut.wav") + "\""));
    for (const char* name : { "a.wav", "b.wav", "c.wav", "d.wav" })
        CHECK (ReadFile (folder / "out" / name) == ReadFile (Path ("voice.wav")));
    CHECK (ReadFile (Path ("out/drums/loop.flac")) == ReadFile (Path ("loop.flac")));
    CHECK_FALSE (fs::exists (folder / "out/cut.wav"));

    fs::remove (folder / "in/cut.wav");
    fs::remove (folder / "out/b.wav");
    CHECK (RunProgram (STRIP_RENDER, With (batch, { "--plugin", TESSALY_BUNDLE, "--skip-existing" })).out ==
           "1 rendered, 4 there already, 1 no audio, 0 failed\n");
    CHECK (Says (Run (batch).err, "--force"));
}

TEST_CASE_FIXTURE (StripRender, "A batch writes over none of its inputs, and no result over another")
{
    fs::create_directories (folder / "in");
    fs::copy_file (kVoice, folder / "in/a.wav");
    fs::copy_file (kDrums, folder / "in/a.flac");
    const auto own = Run ({ Path ("in"), "--out-dir", Path ("in"), "--force" });
    CHECK (ReadFile (Path ("in/a.wav")) == ReadFile (kVoice));
    const auto both = Run ({ Path ("in"), "--out-dir", Path ("out"), "--format", "wav" });
    CHECK (both.exitStatus == 1);
    CHECK (both.out == "1 rendered, 0 there already, 0 no audio, 1 failed\n");
}

TEST_CASE_FIXTURE (StripRender, "A batch tells programs what became of each file, and a dry run writes nothing")
{
    fs::create_directories (folder / "in/sub");
    fs::copy_file (kVoice, folder / "in/a.wav");
    fs::copy_file (kDrums, folder / "in/sub/b.flac");
    folder.Write ("in/notes.txt", "no audio");
    folder.Write ("in/cut.wav", ReadFile (kVoice).substr (0, 20000));
    const Words batch{ Path ("in"), "--out-dir", Path ("out"), "--recursive", "--json" };
    for (const bool dry : { true, false })
    {
        const auto run = Run (With (batch, { dry ? "--dry-run" : "--force" }));
        CHECK (run.exitStatus == 1);
        const auto told = nlohmann::json::parse (run.out);
        REQUIRE (told["rendered"].size () == 2);
        CHECK (told["rendered"][1]["output"]["file"] == Path ("out/sub/b.flac"));
        CHECK (told["rendered"][1]["output"]["format"] == "FLAC, 16-bit");
        CHECK (told["rendered"][1]["output"].contains ("peakDbfs") != dry);
        CHECK (told["noAudio"][0] == Path ("in/notes.txt"));
        CHECK (told["failed"][0]["file"] == Path ("in/cut.wav"));
        CHECK (fs::exists (folder / "out") != dry);
    }
}
