#pragma once

#include "kprd_collection.h"
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tessaly
{

/// Reads key-point sets from folders: regular files with the extension "kpd" in any case, in the folder itself and in
/// the folders one level below it, which are listed even when they are empty. Links are followed; a loop of them ends
/// at that level. Nothing looks into the files: whatever has the extension is listed.
///
/// A host is waiting, so there are bounds. For each collection folder: kMostEntries names are looked at, those below it
/// included, and kMostBytes are read; what comes after them is not seen. Of a file kLongestFile bytes are read.
/// Nothing is opened that could block: no FIFO, no socket, no device.
///
/// Passed over without a message: folders that are missing, unreadable or had their turn before, by another path; files
/// that cannot be opened; names that are no UTF-8; a file named by its extension alone.
class KPRD_LinuxCollectionImp : public KPRD_CollectionImp
{
public:
    static constexpr std::int32_t kMostEntries = 10000;
    static constexpr std::int64_t kMostBytes = 16 * 1024 * 1024;
    static constexpr std::int64_t kLongestFile = 64 * 1024; // a key-point file has 512

    explicit KPRD_LinuxCollectionImp (std::vector<std::filesystem::path> folders);

    void Load (KPRD_Entries& list) override;

private:
    std::vector<std::filesystem::path> paths;
};

} // namespace tessaly
