#include "kprd_win_collection_imp.h"
#include "temp_folder.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

/// Reads another folder than the machine's.
class CollectionIn final : public KPRD_WinCollectionImp
{
public:
    explicit CollectionIn (const test::TempFolder& folder) { path = folder.Path ().string (); }

    bool Locate () override { return std::filesystem::is_directory (path); }
};

std::string Names (const KPRD_Entries& entries)
{
    std::string names;
    for (const auto& entry : entries)
    {
        names += entry->Name ();
        names += entry->Children ().empty () ? ";" : "(" + Names (entry->Children ()) + ");";
    }
    return names;
}

} // namespace

TEST_CASE ("KPRD_WinCollectionImp: lists what has the extension, two levels deep")
{
    const test::TempFolder folder;
    std::filesystem::create_directories (folder / "Voice" / "Deeper");
    folder.Write ("Loud.KPD", std::string (1000, 'x'));
    folder.Write ("Two.dots.kpd", "");
    for (const auto* const other : { "Saved.kpd.bak", "kpd", "Text.txt", "Voice/Deeper/Unseen.kpd" })
        folder.Write (other, "x");
    folder.Write ("Voice/Soft.kpd", "soft");

    KPRD_Entries entries;
    CollectionIn (folder).Load (entries);
    CHECK (Names (entries) == "Loud;Two.dots;Voice(Soft;);"); // the disk's order, which is that of the names
    REQUIRE (entries.size () == 3);
    CHECK (entries[0]->Size () == 1000);
    CHECK (std::string (reinterpret_cast<const char*> (entries[2]->Children ()[0]->Data ()), 4) == "soft");
}

TEST_CASE ("KPRD_WinCollectionImp: what is read has a bound")
{
    const test::TempFolder folder;
    for (int i = 0; i < 300; ++i)
        folder.Write (std::to_string (i) + ".kpd", std::string (KPRD_WinCollectionImp::kLongestFile + 1, 'x'));
    KPRD_Entries entries;
    CollectionIn (folder).Load (entries);
    CHECK (entries.size () == KPRD_WinCollectionImp::kMostBytes / KPRD_WinCollectionImp::kLongestFile);
}

TEST_CASE ("KPRD_WinCollectionImp: the machine's folder lies below the shared documents")
{
    KPRD_WinCollectionImp collection;
    collection.Locate ();
    CHECK (collection.Path ().ends_with ("\\Documents\\Hollin\\KPRD"));
}
