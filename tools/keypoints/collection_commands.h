#pragma once

#include "kprd_manager.h"
#include "set_file.h"

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace tessaly::keypoints
{

/// A set of the collection.
struct ListedSet
{
    std::string place;      ///< its name with its folders, as "voice/Lead Vocal"
    const KPRD_Data* entry; ///< not owned: the manager's
};

/// Loads the collection. @return its sets in the order in which the plug-in's dialog lists them
std::vector<ListedSet> ListedSets (KPRD_Manager& manager);

/// @return whether `name` is the place of a set or the last part of it, letter case apart
bool IsNamed (const std::string& place, const std::string& name);

/// @return the files of the collection that have such a name (IsNamed)
std::vector<std::filesystem::path> FilesNamed (const std::string& name);

/// The collection as the plug-in's dialog lists it: folders first, all of them open, entries indented; as JSON a list of
/// places.
/// @return whether there is any
bool PrintCollection (std::ostream& out, bool asJson);

/// The folders of the collection, each with a mark whether it exists, in the order in which they are read.
void PrintFolders (std::ostream& out);

/// Copies a set into the user's own folder, which is made where it is missing. @return where it is now
/// @throws SetError when it is no set that the plug-in would take; or, unless what is there is to be replaced, when there
/// is such a one already or its steps lie beyond the scales
std::filesystem::path Install (const std::filesystem::path& set, Existing existing);

/// Removes a set from the user's own folder: by its name there (IsNamed). @return where it was
/// @throws SetError when none or more than one is so named, or it cannot be removed
std::filesystem::path Uninstall (const std::string& name);

} // namespace tessaly::keypoints
