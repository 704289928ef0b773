#include "find_set.h"

#include "collection_commands.h"
#include "key_point_file.h"
#include "key_point_folders.h"
#include "set_error.h"
#include "set_file.h"
#include "text.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace tessaly::keypoints
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kBuiltInName = "01 Basic";

NamedSet SetOf (const KPRD_Data& entry)
{
    NamedSet set{ entry.Name (), EmptySet (), {} };
    const auto size = static_cast<std::int32_t> (entry.Size ());
    if (!ReadKeyPointFile (entry.Data (), size, set.table))
        throw SetError ("the set \"" + set.name + "\" is damaged: " + KeyPointFileFault (entry.Data (), size));
    return set;
}

} // namespace

NamedSet FindSet (const std::string& fileOrName)
{
    std::error_code ignored;
    const fs::path file = fileOrName;
    if (fs::exists (file, ignored) && !fs::is_directory (file, ignored))
        return { file.stem ().string (), ReadSetFile (file), {} };

    KPRD_Manager manager (MakePlatformCollection);
    auto listed = ListedSets (manager);
    std::erase_if (listed, [&] (const ListedSet& set) { return !IsNamed (set.place, fileOrName); });
    std::ranges::stable_partition (listed, [&] (const ListedSet& set)
                                   { return set.place == fileOrName || set.entry->Name () == fileOrName; });
    if (listed.empty () && Lowered (fileOrName) == Lowered (kBuiltInName))
        return { kBuiltInName, builtInKeyPoints, {} };
    if (listed.empty ())
        throw SetError ("there is neither a file nor a key-point set \"" + fileOrName +
                        "\"; \"keypoints list\" shows the sets");
    auto set = SetOf (*listed.front ().entry);
    for (const auto& alike : listed)
        if (listed.size () > 1)
            set.alike.push_back (alike.place);
    return set;
}

void TellAlike (const char* program, const NamedSet& set)
{
    if (set.alike.empty ())
        return;
    std::cerr << program << ": " << set.alike.size () << " sets have that name; taken: \"" << set.alike.front ()
              << "\", the first in the collection\n";
}

} // namespace tessaly::keypoints
