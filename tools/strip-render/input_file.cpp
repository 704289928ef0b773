#include "input_file.h"

#include "interrupts.h"
#include "pending_file.h"
#include "render_error.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

std::string Reason ()
{
    return std::generic_category ().message (errno);
}

int Open (const fs::path& path)
{
    if (path == "-")
        return dup (STDIN_FILENO);
    std::error_code ignored;
    if (!fs::exists (path, ignored))
        throw RenderError ("no such file: \"" + path.string () + "\"");
    if (fs::is_directory (path, ignored))
        throw RenderError ("\"" + path.string () + "\" is a folder, not an audio file");
    const int file = open (path.c_str (), O_RDONLY | O_CLOEXEC);
    ThrowIfInterrupted (); // opening a pipe waits for its other end
    return file;
}

bool WriteAll (int file, const char* bytes, ssize_t count)
{
    while (count > 0)
    {
        const ssize_t written = write (file, bytes, static_cast<std::size_t> (count));
        if (written < 0)
            return false;
        bytes += written;
        count -= written;
    }
    return true;
}

} // namespace

InputFile::InputFile (const fs::path& path)
    : descriptor (Open (path))
{
    struct stat status
    {
    };
    if (descriptor < 0 || fstat (descriptor, &status) != 0)
        throw RenderError ("\"" + path.string () + "\" cannot be read: " + Reason ());
    if (!S_ISREG (status.st_mode))
        Spool (path);
    size = lseek (descriptor, 0, SEEK_END);
    lseek (descriptor, 0, SEEK_SET);
}

void InputFile::Spool (const fs::path& path)
{
    const int from = descriptor;
    descriptor = OpenUnnamedFile ();
    std::array<char, 1 << 16> bytes;
    ssize_t count = 0;
    while ((count = read (from, bytes.data (), bytes.size ())) > 0)
    {
        ThrowIfInterrupted ();
        if (!WriteAll (descriptor, bytes.data (), count))
            throw RenderError ("what \"" + path.string () + "\" gives cannot be kept meanwhile: " + Reason ());
    }
    ThrowIfInterrupted ();
    if (count < 0)
        throw RenderError ("\"" + path.string () + "\" cannot be read: " + Reason ());
    close (from);
}

InputFile::~InputFile ()
{
    close (descriptor);
}

bool InputFile::ReadAt (std::int64_t offset, void* bytes, std::size_t count) const
{
    return pread (descriptor, bytes, count, offset) == static_cast<ssize_t> (count);
}

bool IsStream (const fs::path& path)
{
    if (path == "-" || host::NamesOpenFile (path))
        return true;
    std::error_code ignored;
    const auto status = fs::status (path, ignored);
    return fs::exists (status) && !fs::is_regular_file (status) && !fs::is_directory (status);
}

int OpenUnnamedFile ()
{
    std::string name = (fs::temp_directory_path () / "strip-render-XXXXXX").string ();
    const int file = mkostemp (name.data (), O_CLOEXEC);
    if (file < 0)
        throw RenderError ("no temporary file can be made: " + Reason ());
    unlink (name.c_str ());
    return file;
}

} // namespace tessaly::render
