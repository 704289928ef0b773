#pragma once

#include "pending_file.h"
#include "spool_file.h"

#include <filesystem>
#include <optional>

namespace tessaly::render
{

/// Where a result is put together, and what it becomes when it is whole: a file in its place, or bytes of a stream ("-"
/// or what IsStream tells), which is never replaced. Headers tell the length, so that nothing goes out before the end.
class ResultFile
{
public:
    /// @throws RenderError, HostError when it cannot be written there or may not
    ResultFile (const std::filesystem::path& target, host::Existing existing);

    ResultFile (const ResultFile&) = delete;
    ResultFile& operator= (const ResultFile&) = delete;

    /// Where to write meanwhile.
    const std::filesystem::path& WorkingPath () const { return pending ? pending->WorkingPath () : spool->Path (); }

    /// @throws RenderError, HostError, Interrupted when the result does not arrive
    void Commit ();

private:
    std::filesystem::path target;
    std::optional<host::PendingFile> pending; // null for a stream
    std::optional<tools::SpoolFile> spool;    // null for a file
};

} // namespace tessaly::render
