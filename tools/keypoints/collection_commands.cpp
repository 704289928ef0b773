#include "collection_commands.h"

#include "key_point_folders.h"
#include "panel.h"
#include "set_error.h"
#include "step_doubts.h"
#include "text.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>

namespace tessaly::keypoints
{

namespace fs = std::filesystem;

namespace
{

/// Lists everything: a folder's own folders come to light when it is open.
void LoadOpen (KPRD_Manager& manager)
{
    manager.Load ();
    for (std::size_t before = 0; before != manager.Selects ().size ();)
    {
        before = manager.Selects ().size ();
        for (const auto& line : manager.Selects ())
            line.Data ()->SetExpanded (true);
        manager.Rebuild ();
    }
}

/// The sets among the files of a folder and below it, each with its place in it.
std::vector<std::pair<fs::path, std::string>> SetsBelow (const fs::path& folder)
{
    std::vector<std::pair<fs::path, std::string>> sets;
    std::error_code error;
    for (fs::recursive_directory_iterator file (folder, error), end; file != end; file.increment (error))
        if (HasSetExtension (file->path ()))
            sets.emplace_back (file->path (), file->path ().lexically_relative (folder).replace_extension ().string ());
    return sets;
}

} // namespace

std::vector<ListedSet> ListedSets (KPRD_Manager& manager)
{
    LoadOpen (manager);
    std::vector<ListedSet> sets;
    std::vector<std::string> folders; // those around the present line
    for (const auto& line : manager.Selects ())
    {
        folders.resize (line.Depth ());
        std::string place;
        for (const auto& folder : folders)
            place += folder + "/";
        if (line.Data ()->IsFolder ())
            folders.push_back (line.Data ()->Name ());
        else
            sets.push_back ({ place + line.Data ()->Name (), line.Data () });
    }
    return sets;
}

bool IsNamed (const std::string& place, const std::string& name)
{
    const auto whole = "/" + Lowered (place);
    return !name.empty () && whole.ends_with ("/" + Lowered (name));
}

std::vector<fs::path> FilesNamed (const std::string& name)
{
    std::vector<fs::path> files;
    for (const auto& folder : KeyPointFolders ())
        for (const auto& [file, place] : SetsBelow (folder))
            if (IsNamed (place, name))
                files.push_back (file);
    return files;
}

bool PrintCollection (std::ostream& out, bool asJson)
{
    KPRD_Manager manager (MakePlatformCollection);
    if (asJson)
    {
        auto places = nlohmann::json::array ();
        for (const auto& set : ListedSets (manager))
            places.push_back (set.place);
        out << places.dump (2) << '\n';
        return !places.empty ();
    }
    LoadOpen (manager);
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
    if (const auto doubts = StepDoubts (ReadSetFile (set), Panel ()); existing == Existing::keep && !doubts.empty ())
        throw SetError ("\"" + set.string () + "\": " + doubts.front () + "; --force installs it");
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

fs::path Uninstall (const std::string& name)
{
    auto sets = SetsBelow (UserKeyPointFolder ());
    std::erase_if (sets, [&] (const auto& set) { return !IsNamed (set.second, name); });
    if (sets.empty ())
        throw SetError ("there is no set \"" + name + "\" in \"" + UserKeyPointFolder ().string () + "\"");
    if (sets.size () > 1)
        throw SetError ("more than one set is named \"" + name + "\": \"" + sets[0].second + "\" and \"" +
                        sets[1].second + "\"");
    std::error_code error;
    if (!fs::remove (sets.front ().first, error))
        throw SetError ("cannot remove \"" + sets.front ().first.string () + "\": " + error.message ());
    return sets.front ().first;
}

} // namespace tessaly::keypoints
