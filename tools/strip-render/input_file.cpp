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
        return tools::DuplicateInput ();
    std::error_code ignored;
    if (!fs::exists (path, ignored))
        throw RenderError ("no such file: \"" + path.string () + "\"");
    if (fs::is_directory (path, ignored))
        throw RenderError ("\"" + path.string () + "\" is a folder, not an audio file");
    const int file = tools::OpenToRead (path);
    ThrowIfInterrupted (); // opening a pipe waits for its other end
    return file;
}

bool WriteAll (int file, const char* bytes, std::int64_t count)
{
    while (count > 0)
    {
        const auto written = tools::WriteSome (file, bytes, static_cast<std::size_t> (count));
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
    if (descriptor < 0)
        throw RenderError ("\"" + path.string () + "\" cannot be read: " + Reason ());
    if (!tools::IsOrdinary (descriptor))
        Spool (path);
    size = tools::Rewind (descriptor);
}

void InputFile::Spool (const fs::path& path)
{
    const int from = descriptor;
    descriptor = OpenUnnamedFile ();
    std::array<char, 1 << 16> bytes;
    std::int64_t count = 0;
    while ((count = tools::ReadSome (from, bytes.data (), bytes.size ())) > 0)
    {
        ThrowIfInterrupted ();
        if (!WriteAll (descriptor, bytes.data (), count))
            throw RenderError ("what \"" + path.string () + "\" gives cannot be kept meanwhile: " + Reason ());
    }
    ThrowIfInterrupted ();
    if (count < 0)
        throw RenderError ("\"" + path.string () + "\" cannot be read: " + Reason ());
    tools::Close (from);
}

InputFile::~InputFile ()
{
    tools::Close (descriptor);
}

bool InputFile::ReadAt (std::int64_t offset, void* bytes, std::size_t count) const
{
    return tools::ReadSomeAt (descriptor, offset, bytes, count) == static_cast<std::int64_t> (count);
}

bool IsStream (const fs::path& path)
{
    if (path == "-" || tools::IsNameOfOpenFile (path))
        return true;
    std::error_code ignored;
    const auto status = fs::status (path, ignored);
    return fs::exists (status) && !fs::is_regular_file (status) && !fs::is_directory (status);
}

int OpenUnnamedFile ()
{
    const int file = tools::OpenTemporary ();
    if (file < 0)
        throw RenderError ("no temporary file can be made: " + Reason () + "; TMPDIR names the folder for them");
    return file;
}

} // namespace tessaly::render
