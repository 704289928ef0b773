#pragma once

#include <filesystem>

namespace tessaly::host
{

/// What is to become of a file that is there already.
enum class Existing
{
    keep,   ///< it is an error
    replace ///< it makes room
};

/// A file in the making: written under another name in the folder of its target, and put in the target's place when it
/// is whole. Without Commit nothing of it stays.
class PendingFile
{
public:
    /// Creates the working file, empty. A target that is a symbolic link means the file that it leads to.
    /// @throws HostError when the target's folder is missing or may not be written to, or the target is there and is to
    /// be kept, or is no ordinary file
    explicit PendingFile (const std::filesystem::path& target, Existing existing = Existing::replace);
    ~PendingFile ();

    PendingFile (const PendingFile&) = delete;
    PendingFile& operator= (const PendingFile&) = delete;

    /// Where to write meanwhile.
    const std::filesystem::path& WorkingPath () const { return working; }
    const std::filesystem::path& Target () const { return target; }

    /// Puts the file, closed by its writer, in the target's place. A target that was there lends its permissions.
    /// @throws HostError when the file system refuses, or a target to keep has come meanwhile
    void Commit ();

private:
    void Create ();
    bool CommitAsNew (); ///< @return false, with nothing changed, when there is a target
    void Rename ();

    std::filesystem::path target;
    std::filesystem::path working;
    Existing existing;
    bool committed = false;
};

/// Whether a name is that of a working file, as a process leaves one that is killed.
bool IsPendingFile (const std::filesystem::path& file);

} // namespace tessaly::host
