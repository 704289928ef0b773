#include "find_set.h"

#include "key_point_file.h"
#include "key_point_folders.h"
#include "kprd_manager.h"
#include "set_error.h"
#include "set_file.h"

#include <filesystem>

namespace tessaly::keypoints
{

namespace fs = std::filesystem;

NamedSet FindSet (const std::string& fileOrName)
{
    std::error_code ignored;
    const fs::path file = fileOrName;
    if (fs::is_regular_file (file, ignored))
        return { file.stem ().string (), ReadSetFile (file) };

    KPRD_Manager manager (MakePlatformCollection);
    manager.Load ();
    const auto* entry = manager.FindByName (fileOrName.c_str ());
    if (entry == nullptr)
        throw SetError ("there is neither a file nor a key-point set \"" + fileOrName +
                        "\"; \"keypoints list\" shows the sets");
    NamedSet set{ entry->Name (), EmptySet () };
    const auto size = static_cast<std::int32_t> (entry->Size ());
    if (!ReadKeyPointFile (entry->Data (), size, set.table))
        throw SetError ("the set \"" + fileOrName + "\" is damaged: " + KeyPointFileFault (entry->Data (), size));
    return set;
}

} // namespace tessaly::keypoints
