#include "result_file.h"

#include "input_file.h"
#include "interrupts.h"
#include "open_files.h"
#include "render_error.h"

#include <array>
#include <cerrno>
#include <string>
#include <system_error>

namespace tessaly::render
{

namespace
{

int OpenStream (const std::filesystem::path& target)
{
    const int file = target == "-" ? tools::DuplicateOutput () : tools::OpenToWrite (target);
    ThrowIfInterrupted (); // opening a pipe waits for its other end
    return file;
}

/// @return whether all of `from`, from its start, has gone to `to`
bool Copy (int from, int to)
{
    std::array<char, 1 << 16> bytes;
    std::int64_t count = 0;
    for (std::int64_t at = 0; (count = tools::ReadSomeAt (from, at, bytes.data (), bytes.size ())) > 0; at += count)
        for (std::int64_t done = 0; done < count;)
        {
            ThrowIfInterrupted ();
            const auto written = tools::WriteSome (to, bytes.data () + done, static_cast<std::size_t> (count - done));
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
    spool.emplace ();
    if (spool->Descriptor () < 0)
        throw RenderError ("no temporary file can be made: " + std::generic_category ().message (errno) +
                           "; TMPDIR names the folder for them");
}

void ResultFile::Commit ()
{
    if (pending)
    {
        pending->Commit ();
        return;
    }
    const int stream = OpenStream (target);
    if (stream < 0 || !Copy (spool->Descriptor (), stream) || !tools::Close (stream))
        throw RenderError ("the result does not go into \"" + target.string () +
                           "\": " + std::generic_category ().message (errno));
}

} // namespace tessaly::render
