#include "collection_commands.h"

#include "key_point_folders.h"
#include "kprd_manager.h"
#include "set_error.h"

#include <ostream>
#include <string>

namespace tessaly::keypoints
{

namespace fs = std::filesystem;

bool PrintCollection (std::ostream& out)
{
    KPRD_Manager manager (MakePlatformCollection);
    manager.Load ();
    for (const auto& line : manager.Selects ())
        line.Data ()->SetExpanded (true);
    manager.Rebuild ();
    for (const auto& line : manager.Selects ())
        out << std::string (2 * line.Depth (), ' ') << line.Data ()->Name () << (line.Data ()->IsFolder () ? "/" : "")
            << '\n';
    return !manager.Selects ().empty ();
}

void PrintFolders (std::ostream& out)
{
    std::error_code ignored;
    for (const auto& folder : KeyPointFolders ())
        out << (fs::is_directory (folder, ignored) ? "exists   " : "missing  ") << folder.string () << '\n';
}

fs::path Install (const fs::path& set, Existing existing)
{
    if (const auto fault = SetFault (set); !fault.empty ())
        throw SetError ("the plug-in would not take \"" + set.string () + "\": " + fault);
    const auto folder = UserKeyPointFolder ();
    if (folder.empty ())
        throw SetError ("there is no home for it: neither XDG_DATA_HOME nor HOME is set");
    std::error_code error;
    fs::create_directories (folder, error);
    if (error)
        throw SetError ("cannot make the folder \"" + folder.string () + "\": " + error.message ());
    CopySetFile (set, folder / set.filename (), existing);
    return folder / set.filename ();
}

} // namespace tessaly::keypoints
