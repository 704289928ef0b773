#include "environment_variable.h"
#include "program_run.h"
#include "recording.h"
#include "temp_folder.h"
#include <doctest/doctest.h>
#include <filesystem>
#include <string>
#include <vector>

using namespace tessaly::test;
namespace fs = std::filesystem;

namespace
{

/// Two key points, rows 0 and 2, that differ from the built-in ones; the row between them empty.
std::string SetBytes ()
{
    std::string bytes = "KPRD" + std::string (28, '\0') + std::string (360, '\xFF') + std::string (120, '\0');
    for (const std::size_t row : { 0U, 2U })
        for (std::size_t column = 0; column < 17; ++column)
        {
            bytes[32 + 40 * row + 2 * column] = 0;
            bytes[32 + 40 * row + 2 * column + 1] = static_cast<char> (column == 3 ? 2 : 60 + row);
        }
    return bytes;
}

ProgramRun Run (const Words& words)
{
    return RunProgram (STRIP_RENDER, With (words, { "--plugin", TESSALY_BUNDLE }));
}

} // namespace

TEST_CASE ("strip-render: --keypoints takes a set by file or by name, as if chosen in the plug-in's dialog")
{
    const TempFolder folder;
    const EnvironmentVariable dirs ("XDG_DATA_DIRS", (folder / "machine").c_str ());
    const EnvironmentVariable home ("XDG_DATA_HOME", (folder / "home").c_str ());
    fs::create_directories (folder / "home/Hollin/KPRD/voice");
    folder.Write ("home/Hollin/KPRD/voice/Own Set.kpd", SetBytes ());
    const auto file = folder.Write ("Own Set.kpd", SetBytes ()).string ();

    std::string saved;
    for (const auto& set : { file, std::string ("Own Set") })
    {
        const auto state = (folder / "a.state").string ();
        const auto run = Run ({ "--keypoints", set, "--save-state", state });
        CHECK (run.err == "");
        REQUIRE (run.exitStatus == 0);
        const auto bytes = ReadFile (state);
        REQUIRE (bytes.size () == 812);
        CHECK (bytes.substr (120, 8) == std::string ("Own Set\0", 8));
        CHECK (bytes.substr (376, 4) == std::string ("\x3C\0\x3C\0", 4)); // row 0 begins with two steps of 60
        CHECK (bytes.substr (376 + 34, 34) == std::string (34, '\xFF'));
        CHECK ((saved.empty () || saved == bytes));
        saved = bytes;
    }
}

TEST_CASE ("strip-render: --keypoints is heard in a render, and refuses what is no set")
{
    const TempFolder folder;
    const auto set = folder.Write ("a.kpd", SetBytes ()).string ();
    const auto rendered = [&] (const std::string& name, std::vector<std::string> words)
    {
        const auto out = (folder / (name + ".wav")).string ();
        words.insert (words.begin (), { kVoice, out });
        CHECK (Run (words).exitStatus == 0);
        return Load (out).samples;
    };
    const auto chosen = rendered ("chosen", { "--keypoints", set });
    const auto state = (folder / "a.state").string ();
    CHECK (Run ({ "--keypoints", set, "--save-state", state }).exitStatus == 0);
    CHECK (chosen == rendered ("restored", { "--state", state }));
    CHECK (chosen != rendered ("plain", {}));

    CHECK (Run ({ "--keypoints", folder.Write ("x.kpd", SetBytes () + "x").string (), "--list" }).exitStatus == 1);
    CHECK (Run ({ "--keypoints", "no such set", "--list" }).exitStatus == 1);
}
