#pragma once

#include "kprd_collection.h"
#include <filesystem>
#include <memory>
#include <vector>

namespace tessaly
{

/// The folders in which key-point sets are looked for, as the environment says now, whether they exist or not: those of
/// the machine, then the user's own.
std::vector<std::filesystem::path> KeyPointFolders ();

/// The user's own folder, the last of KeyPointFolders; empty when the user has no home.
std::filesystem::path UserKeyPointFolder ();

/// The back end of this system, which reads these folders. It creates nothing.
std::unique_ptr<KPRD_CollectionImp> MakeCollection (std::vector<std::filesystem::path> folders);

/// The one that reads KeyPointFolders.
std::unique_ptr<KPRD_CollectionImp> MakePlatformCollection ();

} // namespace tessaly
