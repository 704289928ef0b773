#include "pending_file.h"

#include "host_error.h"
#include "open_files.h"
#include "running_process.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <system_error>

namespace tessaly::host
{

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view kWorkingPrefix = ".tessaly-";
constexpr std::string_view kWorkingSuffix = ".part";

/// Not made from the target's name, which may already be as long as a name can be.
std::string WorkingName ()
{
    static std::atomic<int> made = 0; // several threads may write files
    std::string name (kWorkingPrefix);
    name += std::to_string (tools::ProcessNumber ()) + "-" + std::to_string (++made);
    return name += kWorkingSuffix;
}

[[noreturn]] void RefuseToReplace (const fs::path& file)
{
    throw HostError ("\"" + file.string () + "\" is there already; --force replaces it");
}

} // namespace

PendingFile::PendingFile (const fs::path& wanted, Existing whatIsThere)
    : existing (whatIsThere)
{
    std::error_code ignored;
    target = fs::weakly_canonical (fs::absolute (wanted), ignored);
    if (ignored || target.empty ())
        target = fs::absolute (wanted);
    const auto status = fs::status (target, ignored);
    if (tools::IsNameOfOpenFile (wanted) ||
        (fs::exists (status) && !fs::is_regular_file (status) && !fs::is_directory (status)))
        throw HostError ("\"" + wanted.string () + "\" is no ordinary file and will not be replaced");
    if (fs::is_symlink (fs::symlink_status (target, ignored)))
        throw HostError ("\"" + wanted.string () + "\" is a link that leads nowhere");
    if (fs::is_directory (status) || !target.has_filename ())
        throw HostError ("\"" + wanted.string () + "\" is a folder, not a file to write");
    if (existing == Existing::keep && fs::exists (status))
        RefuseToReplace (wanted);
    if (!fs::is_directory (target.parent_path (), ignored))
        throw HostError ("there is no folder \"" + target.parent_path ().string () + "\" to write \"" +
                         target.filename ().string () + "\" into");
    Create ();
}

/// Exclusively: what already has the name, or a link that somebody put there, is not written over.
void PendingFile::Create ()
{
    do
    {
        working = target.parent_path () / WorkingName ();
        if (tools::CreateNew (working))
            return;
    } while (errno == EEXIST);
    throw HostError ("cannot write into \"" + target.parent_path ().string () +
                     "\": " + std::generic_category ().message (errno));
}

PendingFile::~PendingFile ()
{
    std::error_code ignored;
    if (!committed)
        fs::remove (working, ignored);
}

void PendingFile::Commit ()
{
    if (existing == Existing::keep)
    {
        if (!CommitAsNew ())
            RefuseToReplace (target);
        return;
    }
    std::error_code error;
    const auto previous = fs::status (target, error);
    if (fs::is_regular_file (previous))
        fs::permissions (working, previous.permissions (), error);
    Rename ();
}

bool PendingFile::CommitAsNew ()
{
    // A second name can't take the place of a file, not even of one that has come since anybody looked
    std::error_code error;
    fs::create_hard_link (working, target, error);
    if (!error)
        return true; // the destructor takes the first name away
    if (fs::exists (fs::symlink_status (target)))
        return false;
    // A file system without second names
    if (tools::RenameToNew (working, target))
        return committed = true;
    if (errno == EEXIST)
        return false;
    Rename (); // nor one that can refuse
    return true;
}

void PendingFile::Rename ()
{
    std::error_code error;
    fs::rename (working, target, error);
    if (error)
        throw HostError ("cannot put the result at \"" + target.string () + "\": " + error.message ());
    committed = true;
}

bool IsPendingFile (const fs::path& file)
{
    const std::string name = file.filename ().string ();
    return name.starts_with (kWorkingPrefix) && name.ends_with (kWorkingSuffix);
}

} // namespace tessaly::host
