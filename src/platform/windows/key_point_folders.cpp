#include "key_point_folders.h"

#include "ansi_text.h"
#include "kprd_win_collection_imp.h"
#include <utility>

namespace tessaly
{

namespace fs = std::filesystem;

namespace
{

/// Other folders than that of the machine.
class GivenFolders final : public KPRD_WinCollectionImp
{
public:
    explicit GivenFolders (std::vector<fs::path> given)
        : folders (std::move (given))
    {
    }
    void Load (KPRD_Entries& list) override
    {
        for (const auto& folder : folders)
            Scan (0, folder.string () + "\\*", list);
    }

private:
    std::vector<fs::path> folders;
};

} // namespace

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

std::unique_ptr<KPRD_CollectionImp> MakeCollection (std::vector<fs::path> folders)
{
    return std::make_unique<GivenFolders> (std::move (folders));
}

std::unique_ptr<KPRD_CollectionImp> MakePlatformCollection ()
{
    return std::make_unique<KPRD_WinCollectionImp> ();
}

} // namespace tessaly
