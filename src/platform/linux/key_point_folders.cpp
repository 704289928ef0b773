#include "key_point_folders.h"

#include "kprd_linux_collection_imp.h"
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace tessaly
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kBelowDataFolder = "Hollin/KPRD";
constexpr const char* kDefaultDataFolders = "/usr/local/share:/usr/share";
constexpr const char* kDefaultBelowHome = ".local/share";

/// An empty variable counts as one that is not set.
std::string Variable (const char* name)
{
    const char* value = std::getenv (name);
    return value != nullptr ? value : "";
}

/// Only absolute folders count, as the XDG rules for base directories have it. @return empty otherwise
fs::path BelowDataFolder (const fs::path& folder)
{
    return folder.is_absolute () ? folder / kBelowDataFolder : fs::path ();
}

} // namespace

fs::path UserKeyPointFolder ()
{
    if (const auto folder = BelowDataFolder (Variable ("XDG_DATA_HOME")); !folder.empty ())
        return folder;
    return BelowDataFolder (fs::path (Variable ("HOME")) / kDefaultBelowHome);
}

std::vector<fs::path> KeyPointFolders ()
{
    auto list = Variable ("XDG_DATA_DIRS");
    if (list.empty ())
        list = kDefaultDataFolders;
    std::vector<fs::path> folders;
    const auto add = [&folders] (const fs::path& folder)
    {
        if (!folder.empty ())
            folders.push_back (folder);
    };
    for (std::string_view rest = list; !rest.empty ();)
    {
        const auto end = rest.find (':');
        add (BelowDataFolder (rest.substr (0, end)));
        rest.remove_prefix (end == rest.npos ? rest.size () : end + 1);
    }
    add (UserKeyPointFolder ());
    return folders;
}

std::unique_ptr<KPRD_CollectionImp> MakeCollection (std::vector<fs::path> folders)
{
    return std::make_unique<KPRD_LinuxCollectionImp> (std::move (folders));
}

std::unique_ptr<KPRD_CollectionImp> MakePlatformCollection ()
{
    return MakeCollection (KeyPointFolders ());
}

} // namespace tessaly
