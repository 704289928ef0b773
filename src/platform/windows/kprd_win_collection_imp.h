#pragma once

#include "kprd_collection.h"
#include <cstdint>
#include <string>

namespace tessaly
{

/// Reads key-point sets from the folder that all users of the machine share, "Hollin\KPRD" below the shared documents:
/// files with the extension "kpd" in any case, in the folder itself and in the folders one level below it, which are
/// listed even when they are empty. Nothing looks into the files: whatever has the extension is listed.
///
/// Names and paths are the system's in its ANSI code page. A file's name goes into the entry as UTF-8, a folder's as the
/// system gave it. Passed over without a message: a missing or unreadable folder, and files that cannot be opened or
/// whose names cannot be converted.
///
/// A host is waiting, so there are bounds. For each collection folder kMostEntries names are looked at, those below it
/// included, and kMostBytes are read; what comes after them is not seen. Of a file kLongestFile bytes are read.
class KPRD_WinCollectionImp : public KPRD_CollectionImp
{
public:
    static constexpr std::int32_t kMostEntries = 10000;
    static constexpr std::int64_t kMostBytes = 16 * 1024 * 1024;
    static constexpr std::uint32_t kLongestFile = 64 * 1024; // a key-point file has 512

    void Load (KPRD_Entries& list) override;

    /// Appends the entries of a folder.
    /// @param depth    0 for the folder itself, 1 for those below it, whose own folders are passed over
    /// @param pattern  the folder, a backslash and "*"
    virtual void Scan (std::int32_t depth, const std::string& pattern, KPRD_Entries& list);

    virtual bool Locate (); ///< finds the folder. @return whether it is there

    const std::string& Path () const { return path; } ///< as Locate has left it; empty without shared documents

protected:
    std::string path;

private:
    std::int32_t entriesLeft = kMostEntries;
    std::int64_t bytesLeft = kMostBytes;
};

} // namespace tessaly
