#include "environment_variable.h"
#include "temp_folder.h"
#include "user_settings.h"
#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>
#include <string>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

std::filesystem::path FileIn (const TempFolder& folder)
{
    return folder.Path () / "tessaly-bench" / "panel.conf";
}

} // namespace

TEST_CASE ("UserSettings: a setting comes back, and the others stay")
{
    const TempFolder folder;
    const EnvironmentVariable home ("XDG_CONFIG_HOME", folder.Path ().c_str ());
    CHECK_FALSE (ReadUserSetting ("scale").has_value ());
    CHECK (WriteUserSetting ("other", 7.25));
    CHECK (WriteUserSetting ("scale", 1.75));
    CHECK (ReadUserSetting ("scale") == 1.75);
    CHECK (ReadUserSetting ("other") == 7.25);
    // Written by rename: no working file is left beside it.
    CHECK (std::distance (std::filesystem::directory_iterator (FileIn (folder).parent_path ()), {}) == 1);
}

TEST_CASE ("UserSettings: what can't be read counts as not set")
{
    const TempFolder folder;
    const EnvironmentVariable home ("XDG_CONFIG_HOME", folder.Path ().c_str ());
    std::filesystem::create_directories (FileIn (folder).parent_path ());
    for (const std::string text : { "scale", "scale =", "scale = big", "= 2", "\0\xff", "x = 1\nscales = 2" })
    {
        std::ofstream (FileIn (folder), std::ios::trunc) << text;
        CHECK_FALSE (ReadUserSetting ("scale").has_value ());
    }
    std::filesystem::remove (FileIn (folder));
    std::filesystem::create_directory (FileIn (folder));
    CHECK_FALSE (ReadUserSetting ("scale").has_value ());
    CHECK_FALSE (WriteUserSetting ("scale", 2.0));
}
