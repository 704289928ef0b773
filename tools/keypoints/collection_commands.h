#pragma once

#include "set_file.h"

#include <filesystem>
#include <iosfwd>

namespace tessaly::keypoints
{

/// The collection as the plug-in's dialog lists it: folders first, all of them open, entries indented.
/// @return whether there is any
bool PrintCollection (std::ostream& out);

/// The folders of the collection, each with a mark whether it exists, in the order in which they are read.
void PrintFolders (std::ostream& out);

/// Copies a set into the user's own folder, which is made where it is missing. @return where it is now
/// @throws SetError when it is no set that the plug-in would take, or there is such a one already
std::filesystem::path Install (const std::filesystem::path& set, Existing existing);

} // namespace tessaly::keypoints
