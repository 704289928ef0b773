#include "key_point_folders.h"

#include "ansi_text.h"
#include "kprd_win_collection_imp.h"

namespace tessaly
{

namespace fs = std::filesystem;

/// All users of a machine may write into their shared documents: so the one folder is each user's own, too.
fs::path UserKeyPointFolder ()
{
    KPRD_WinCollectionImp collection;
    collection.Locate ();
    return fs::path (Utf8OfAnsi (collection.Path ()));
}

std::vector<fs::path> KeyPointFolders ()
{
    const auto folder = UserKeyPointFolder ();
    return folder.empty () ? std::vector<fs::path>{} : std::vector{ folder };
}

std::unique_ptr<KPRD_CollectionImp> MakePlatformCollection ()
{
    return std::make_unique<KPRD_WinCollectionImp> ();
}

} // namespace tessaly
