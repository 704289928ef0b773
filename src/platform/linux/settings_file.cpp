#include "settings_file.h"

#include <cstdlib>
#include <unistd.h>

namespace tessaly
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kBelowConfigFolder = "tessaly-bench/panel.conf";
constexpr const char* kDefaultBelowHome = ".config";

} // namespace

/// Only absolute folders count, as the XDG rules for base directories have it.
fs::path SettingsFile ()
{
    const char* folder = std::getenv ("XDG_CONFIG_HOME");
    if (folder != nullptr && fs::path (folder).is_absolute ())
        return fs::path (folder) / kBelowConfigFolder;
    const char* home = std::getenv ("HOME");
    if (home != nullptr && fs::path (home).is_absolute ())
        return fs::path (home) / kDefaultBelowHome / kBelowConfigFolder;
    return {};
}

std::uint32_t ProcessNumber ()
{
    return static_cast<std::uint32_t> (getpid ());
}

} // namespace tessaly
