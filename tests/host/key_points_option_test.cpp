#include "environment_variable.h"
#include "loaded_strip.h"

using namespace tessaly::test;

TEST_CASE_FIXTURE (StripRender, "strip-render: --keypoints takes a set by file or by name and renders by it")
{
    // Two key points, rows 0 and 2, that differ from the built-in ones; the row between them empty.
    std::string bytes = "KPRD" + std::string (28, '\0') + std::string (360, '\xFF') + std::string (120, '\0');
    for (const std::size_t row : { 0U, 2U })
        for (std::size_t column = 0; column < 17; ++column)
        {
            bytes[32 + 40 * row + 2 * column] = 0;
            bytes[32 + 40 * row + 2 * column + 1] = static_cast<char> (column == 3 ? 2 : 60 + row);
        }
    const EnvironmentVariable dirs ("XDG_DATA_DIRS", (folder / "machine").c_str ());
    const EnvironmentVariable home ("XDG_DATA_HOME", (folder / "home").c_str ());
    std::filesystem::create_directories (folder / "home/Hollin/KPRD/voice");
    folder.Write ("home/Hollin/KPRD/voice/Own Set.kpd", bytes);

    const auto state = Path ("a.state");
    for (const std::string& set : { folder.Write ("Own Set.kpd", bytes).string (), std::string ("Own Set") })
    {
        RunWell ({ "--keypoints", set, "--save-state", state, "--force" });
        const auto saved = ReadFile (state);
        REQUIRE (saved.size () == kStateBytes);
        CHECK (saved.substr (120, 8) == std::string ("Own Set\0", 8));
        CHECK (saved.substr (376, 4) == std::string ("\x3C\0\x3C\0", 4)); // row 0 begins with two steps of 60
        CHECK (saved.substr (376 + 34, 34) == std::string (34, '\xFF'));
    }
    const auto chosen = Render (kVoice, "chosen.wav", { "--keypoints", "Own Set" }).samples;
    CHECK (chosen == Render (kVoice, "restored.wav", { "--state", state }).samples);
    CHECK (chosen != Render (kVoice, "plain.wav").samples);

    CHECK (Run ({ "--keypoints", folder.Write ("x.kpd", bytes + "x").string (), "--list" }).exitStatus == 1);
    CHECK (Run ({ "--keypoints", "no such set", "--list" }).exitStatus == 1);
}
