#include "result_file.h"

#include "input_file.h"
#include "interrupts.h"
#include "render_error.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace tessaly::render
{

namespace
{

int OpenStream (const std::filesystem::path& target)
{
    const int file = target == "-" ? dup (STDOUT_FILENO) : open (target.c_str (), O_WRONLY | O_CLOEXEC);
    ThrowIfInterrupted (); // opening a pipe waits for its other end
    return file;
}

/// @return whether all of `from`, from its start, has gone to `to`
bool Copy (int from, int to)
{
    std::array<char, 1 << 16> bytes;
    ssize_t count = 0;
    for (off_t at = 0; (count = pread (from, bytes.data (), bytes.size (), at)) > 0; at += count)
        for (ssize_t done = 0; done < count;)
        {
            ThrowIfInterrupted ();
            const ssize_t written = write (to, bytes.data () + done, static_cast<std::size_t> (count - done));
            if (written < 0 && errno != EINTR)
                return false;
            done += written < 0 ? 0 : written;
        }
    return count == 0;
}

} // namespace

ResultFile::ResultFile (const std::filesystem::path& wanted, host::Existing existing)
    : target (wanted)
{
    if (!IsStream (target))
    {
        pending.emplace (target, existing);
        return;
    }
    spoolFile = OpenUnnamedFile ();
    spool = "/proc/self/fd/" + std::to_string (spoolFile);
}

ResultFile::~ResultFile ()
{
    if (spoolFile >= 0)
        close (spoolFile);
}

void ResultFile::Commit ()
{
    if (pending)
    {
        pending->Commit ();
        return;
    }
    const int stream = OpenStream (target);
    if (stream < 0 || !Copy (spoolFile, stream) || close (stream) != 0)
        throw RenderError ("the result does not go into \"" + target.string () +
                           "\": " + std::generic_category ().message (errno));
}

} // namespace tessaly::render
