#pragma once

#include <filesystem>

namespace tessaly::host
{

/// A file in the making: written under another name in the folder of its target, and put in the target's place when it
/// is whole. Without Commit nothing of it stays.
class PendingFile
{
public:
    /// Creates the working file, empty. A target that is a symbolic link means the file that it leads to.
    /// @throws HostError when the target's folder is missing or may not be written to, or the target is there and no
    /// ordinary file
    explicit PendingFile (const std::filesystem::path& target);
    ~PendingFile ();

    PendingFile (const PendingFile&) = delete;
    PendingFile& operator= (const PendingFile&) = delete;

    /// Where to write meanwhile.
    const std::filesystem::path& WorkingPath () const { return working; }
    const std::filesystem::path& Target () const { return target; }

    /// Puts the file, closed by its writer, in the target's place. A target that was there lends its permissions.
    /// @throws HostError when the file system refuses
    void Commit ();

    /// The same, unless there is a target by now.
    /// @return false, with nothing changed, when there is
    bool CommitAsNew ();

private:
    void Create ();
    void Rename ();

    std::filesystem::path target;
    std::filesystem::path working;
    bool committed = false;
};

} // namespace tessaly::host
