#include "host_error.h"
#include "loaded_strip.h"
#include "state_file.h"

using namespace tessaly;
using namespace tessaly::test;

namespace
{

struct StateFiles : LoadedStrip
{
    TempFolder folder;
    VST3::UID uid = host::Bundle (TESSALY_BUNDLE).FirstAudioEffect ().ID ();
    std::vector<std::byte> chunk = instance.SaveState ();
    std::string preset;

    StateFiles ()
    {
        host::WriteStateFile (folder / "a.vstpreset", uid, chunk);
        host::WriteStateFile (folder / "a.state", uid, chunk);
        preset = ReadFile (folder / "a.vstpreset");
    }
};

} // namespace

TEST_CASE_FIXTURE (StateFiles, "State files: a preset and a chunk alone give back what was written, under any name")
{
    CHECK (preset.substr (0, 4) == "VST3");
    CHECK (preset.substr (8, 32) == uid.toString ());
    CHECK (preset.substr (48, chunk.size ()) == ReadFile (folder / "a.state"));
    CHECK (host::ReadStateFile (folder / "a.vstpreset", uid) == chunk);
    CHECK (host::ReadStateFile (folder.Write ("renamed", preset)) == chunk);
    CHECK (host::ReadStateFile (folder / "a.state") == chunk);
}

TEST_CASE_FIXTURE (StateFiles, "State files: what cannot be one is refused with the reason")
{
    const auto refused = [&] (const std::filesystem::path& file, const char* reason)
    {
        CHECK_THROWS_WITH_AS (host::ReadStateFile (file, VST3::UID (1, 2, 3, 4)), doctest::Contains (reason),
                              host::HostError);
    };
    refused (folder / "absent", "cannot read");
    refused (folder.Path (), "folder");
    refused (folder.Write ("empty", ""), "no state of the strip");
    refused (folder.Write ("large", std::string (20000000, 'x')), "too large");
    refused (folder / "a.vstpreset", "another plug-in");
    for (std::size_t length = 4; length < preset.size (); ++length)
        CHECK_THROWS_AS (host::ReadStateFile (folder.Write ("cut", preset.substr (0, length))), host::HostError);
    preset.replace (preset.size () - 16, 8, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"); // the chunk's place
    CHECK_THROWS_WITH_AS (host::ReadStateFile (folder.Write ("broken", preset)), doctest::Contains ("damaged"),
                          host::HostError);
    CHECK_THROWS_AS (host::WriteStateFile (folder / "nowhere" / "a.vstpreset", uid, {}), host::HostError);
}
