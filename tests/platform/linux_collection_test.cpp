#include "environment_variable.h"
#include "key_point_folders.h"
#include "kprd_linux_collection_imp.h"
#include "temp_folder.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <vector>

using namespace tessaly;
using namespace tessaly::test;
namespace fs = std::filesystem;

namespace
{

using Texts = std::vector<std::string>;

/// What is listed: "name size" of a file, "name/" of a folder with its entries behind it; sorted in each level.
Texts Listing (const KPRD_Entries& entries, const std::string& before = "")
{
    Texts lines;
    for (const auto& entry : entries)
    {
        const auto name = before + entry->Name ();
        lines.push_back (entry->IsFolder () ? name + "/" : name + " " + std::to_string (entry->Size ()));
        for (const auto& line : Listing (entry->Children (), name + "/"))
            lines.push_back (line);
    }
    std::sort (lines.begin (), lines.end ());
    return lines;
}

KPRD_Entries Loaded (const std::vector<fs::path>& folders)
{
    KPRD_Entries entries;
    KPRD_LinuxCollectionImp (folders).Load (entries);
    return entries;
}

} // namespace

TEST_CASE ("Linux collection: entries come folder by folder, in the order of their names")
{
    const TempFolder first;
    const TempFolder second;
    for (const char* name : { "d", "b", "a", "e", "c", "f" })
        (name[0] < 'd' ? first : second).Write (std::string (name) + ".kpd", "x");
    first.Write ("z.kpd", "x");
    std::string names;
    for (const auto& entry : Loaded ({ first.Path (), second.Path () }))
        names += entry->Name ();
    CHECK (names == "abczdef");
}

TEST_CASE ("Linux collection: lists files of the extension, here and one level below, whole and with their bytes")
{
    const TempFolder folder;
    fs::create_directories (folder / "Voice" / "Deep");
    fs::create_directories (folder / "Bare");
    folder.Write ("One.kpd", "four");
    folder.Write ("TWO.two.KpD", std::string (1000, 'x'));
    folder.Write ("Empty.kpd", "");
    folder.Write ("Three.kpd.txt", "no");
    folder.Write ("kpd", "no");
    folder.Write (".kpd", "no");
    folder.Write ("caf\xE9.kpd", "no");
    folder.Write ("caf\xC3\xA9.kpd", "yes");
    folder.Write ("Voice/Soft.kpd", "soft");
    folder.Write ("Voice/Deep/Lost.kpd", "lost"); // a level too deep
    CHECK (Listing (Loaded ({ folder.Path () })) ==
           Texts{ "Bare/", "Empty/", "One 4", "TWO.two 1000", "Voice/", "Voice/Soft 4", "caf\xC3\xA9 3" });
    const auto entries = Loaded ({ folder / "Voice/Deep", folder / "gone", folder / "Voice/../Voice/Deep" });
    REQUIRE (entries.size () == 1);
    CHECK (std::string (entries[0]->Data (), entries[0]->Data () + entries[0]->Size ()) == "lost");
}

TEST_CASE ("Linux collection: no link, device, pipe or huge file stalls or breaks it")
{
    const TempFolder folder;
    fs::create_directory_symlink (folder.Path (), folder / "Loop"); // ends one level below
    fs::create_symlink ("Self.kpd", folder / "Self.kpd");
    fs::create_symlink ("gone", folder / "Nowhere.kpd");
    fs::create_symlink ("/dev/zero", folder / "Device.kpd");
    fs::create_directory (folder / "Folder.kpd");
    folder.Write ("Real.kpd", "real");
    fs::create_symlink ("Real.kpd", folder / "Linked.kpd");
    REQUIRE (mkfifo ((folder / "Pipe.kpd").c_str (), 0600) == 0);
    fs::resize_file (folder.Write ("Huge.kpd", ""), 10'000'000'000); // without blocks on the disk
    CHECK (Listing (Loaded ({ folder.Path () })) == Texts{ "Folder.kpd/", "Huge 65536", "Linked 4", "Loop/",
                                                           "Loop/Huge 65536", "Loop/Linked 4", "Loop/Real 4",
                                                           "Real 4" });
}

TEST_CASE ("Linux collection: what is read has bounds, in names and in bytes")
{
    const TempFolder folder;
    for (int i = 0; i <= KPRD_LinuxCollectionImp::kMostEntries; ++i)
        fs::create_symlink ("target", folder / ("l" + std::to_string (i) + ".kpd"));
    folder.Write ("target", "x");
    CHECK (Loaded ({ folder.Path () }).size () <= KPRD_LinuxCollectionImp::kMostEntries);

    const TempFolder heavy;
    for (int i = 0; i < 300; ++i)
        fs::resize_file (heavy.Write ("h" + std::to_string (i) + ".kpd", ""), 100'000);
    CHECK (Loaded ({ heavy.Path () }).size () ==
           KPRD_LinuxCollectionImp::kMostBytes / KPRD_LinuxCollectionImp::kLongestFile);
}

TEST_CASE ("Linux collection: the machine's data folders come first, then the user's, only absolute ones")
{
    const auto folders = [] (const char* machine, const char* user, const char* home)
    {
        const EnvironmentVariable dirs ("XDG_DATA_DIRS", machine);
        const EnvironmentVariable userData ("XDG_DATA_HOME", user);
        const EnvironmentVariable homeFolder ("HOME", home);
        std::string found;
        for (const auto& folder : KeyPointFolders ())
            found += folder.string () + " ";
        return found;
    };
    CHECK (folders ("/b:relative::/a/:/b", "/user", "/home") ==
           "/b/Hollin/KPRD /a/Hollin/KPRD /b/Hollin/KPRD /user/Hollin/KPRD ");
    CHECK (folders ("/b", "relative", "/home") == "/b/Hollin/KPRD /home/.local/share/Hollin/KPRD ");
    CHECK (folders (nullptr, "", nullptr) == "/usr/local/share/Hollin/KPRD /usr/share/Hollin/KPRD ");
}
