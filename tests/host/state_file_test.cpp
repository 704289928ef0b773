#include "host_error.h"
#include "loaded_strip.h"
#include "program_run.h"
#include "recording.h"
#include "state_file.h"
#include "temp_folder.h"
#include <cstring>
#include <doctest/doctest.h>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

std::string Text (const std::vector<std::byte>& bytes)
{
    return { reinterpret_cast<const char*> (bytes.data ()), bytes.size () };
}

ProgramRun Run (const Words& words)
{
    return RunProgram (STRIP_RENDER, With (words, { "--plugin", TESSALY_BUNDLE }));
}

const Words kMade{ "--set", "Morph=52", "--set", "Mid G=-7.5", "--set", "Equalizer Bypass=On" };

/// @return what ReadStateFile says against it
std::string Refusal (const std::filesystem::path& file, const std::optional<VST3::UID>& component = std::nullopt)
{
    try
    {
        host::ReadStateFile (file, component);
    }
    catch (const host::HostError& error)
    {
        return error.what ();
    }
    return "taken";
}

bool Says (const std::string& text, const char* part)
{
    return text.find (part) != std::string::npos;
}

} // namespace

TEST_CASE ("State files: a preset and a chunk alone give back what was written, whatever the name then is")
{
    const TempFolder folder;
    LoadedStrip strip;
    const auto chunk = strip.instance.SaveState ();
    const auto uid = host::Bundle (TESSALY_BUNDLE).FirstAudioEffect ().ID ();
    host::WriteStateFile (folder / "a.vstpreset", uid, chunk);
    host::WriteStateFile (folder / "a.state", uid, chunk);
    CHECK (ReadFile (folder / "a.state") == Text (chunk));
    const auto preset = ReadFile (folder / "a.vstpreset");
    CHECK (preset.substr (0, 4) == "VST3");
    CHECK (preset.substr (8, 32) == uid.toString ());
    CHECK (preset.substr (48, chunk.size ()) == Text (chunk));
    CHECK (host::ReadStateFile (folder / "a.vstpreset", uid) == chunk);
    CHECK (host::ReadStateFile (folder.Write ("renamed", preset)) == chunk);
    CHECK (host::ReadStateFile (folder / "a.state") == chunk);
}

TEST_CASE ("State files: what cannot be one is refused with the reason")
{
    const TempFolder folder;
    LoadedStrip strip;
    const auto uid = host::Bundle (TESSALY_BUNDLE).FirstAudioEffect ().ID ();
    host::WriteStateFile (folder / "a.vstpreset", uid, strip.instance.SaveState ());
    const auto preset = ReadFile (folder / "a.vstpreset");

    CHECK (Says (Refusal (folder / "absent"), "cannot read"));
    CHECK (Says (Refusal (folder.Path ()), "folder"));
    CHECK (Says (Refusal (folder.Write ("empty", "")), "no state of the strip"));
    CHECK (Says (Refusal (folder.Write ("large", std::string (20000000, 'x'))), "too large"));
    CHECK (Says (Refusal (folder / "a.vstpreset", VST3::UID (1, 2, 3, 4)), "another plug-in"));
    for (std::size_t length = 4; length < preset.size (); ++length)
        CHECK (Refusal (folder.Write ("cut", preset.substr (0, length))) != "taken");
    auto broken = preset;
    broken.replace (preset.size () - 16, 8, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"); // the chunk's place
    CHECK (Says (Refusal (folder.Write ("broken", broken)), "damaged"));
    CHECK_THROWS_AS (host::WriteStateFile (folder / "nowhere" / "a.vstpreset", uid, {}), host::HostError);
}

TEST_CASE ("strip-render: a saved state renders like the settings that made it, as preset and as chunk")
{
    const TempFolder folder;
    const auto path = [&folder] (const char* name) { return (folder / name).string (); };
    for (const auto* name : { "made.vstpreset", "made.bin" })
    {
        CAPTURE (std::string (name));
        CHECK (Run (With ({ kVoice, path ("a.wav"), "--save-state", path (name) }, kMade)).exitStatus == 0);
        CHECK (Run ({ kVoice, path ("b.wav"), "--state", path (name) }).exitStatus == 0);
        CHECK (Load (path ("a.wav")).samples == Load (path ("b.wav")).samples);
        CHECK (Run ({ "--state", path (name), "--save-state", path ("again.bin") }).exitStatus == 0);
        CHECK (host::ReadStateFile (path (name)) == host::ReadStateFile (path ("again.bin")));
    }

    // A setting comes after the state, and the list shows what both make
    const auto list = Run ({ "--state", path ("made.bin"), "--set", "Drive=2.5", "--list" });
    CHECK (Says (list.out, "-7.5"));
    CHECK (Says (list.out, "2.50"));
}

TEST_CASE ("strip-render: a state that cannot be read or written ends the run with a word about it")
{
    const TempFolder folder;
    const auto file = folder.Write ("other.vstpreset", "VST3 or so").string ();
    const auto output = (folder / "out.wav").string ();
    const auto broken = Run ({ kVoice, output, "--state", file });
    CHECK (broken.exitStatus == 1);
    CHECK (Says (broken.err, "damaged preset"));
    CHECK (folder.FileCount () == 1);
    CHECK (Says (Run ({ kVoice, output, "--save-state", output }).err, "would write over"));
    CHECK (Run ({ "--save-state", (folder / "no" / "a.bin").string () }).exitStatus == 1);
    CHECK (Run ({ kVoice, "--save-state", (folder / "a.bin").string () }).exitStatus != 0);
}
