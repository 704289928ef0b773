#include "open_files.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace tessaly::tools
{

namespace fs = std::filesystem;

int OpenToRead (const fs::path& path)
{
    return open (path.c_str (), O_RDONLY | O_CLOEXEC);
}

int OpenToWrite (const fs::path& path)
{
    return open (path.c_str (), O_WRONLY | O_CLOEXEC);
}

int Duplicate (int file)
{
    return fcntl (file, F_DUPFD_CLOEXEC, 0);
}

int DuplicateInput ()
{
    return dup (STDIN_FILENO);
}

int DuplicateOutput ()
{
    return dup (STDOUT_FILENO);
}

bool CreateNew (const fs::path& path)
{
    const int file = open (path.c_str (), O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_WRONLY, 0666);
    return file >= 0 && Close (file);
}

bool RenameToNew (const fs::path& from, const fs::path& to)
{
    return renameat2 (AT_FDCWD, from.c_str (), AT_FDCWD, to.c_str (), RENAME_NOREPLACE) == 0;
}

std::int64_t ReadSome (int file, void* bytes, std::size_t count)
{
    return read (file, bytes, count);
}

std::int64_t WriteSome (int file, const void* bytes, std::size_t count)
{
    return write (file, bytes, count);
}

std::int64_t ReadSomeAt (int file, std::int64_t offset, void* bytes, std::size_t count)
{
    return pread (file, bytes, count, offset);
}

std::int64_t Rewind (int file)
{
    const auto size = lseek (file, 0, SEEK_END);
    lseek (file, 0, SEEK_SET);
    return size;
}

bool IsOrdinary (int file)
{
    struct stat status
    {
    };
    return fstat (file, &status) == 0 && S_ISREG (status.st_mode);
}

bool Close (int file)
{
    return close (file) == 0;
}

int OpenTemporary ()
{
    std::error_code noFolder;
    std::string name = (fs::temp_directory_path (noFolder) / "strip-render-XXXXXX").string ();
    if (noFolder)
    {
        errno = noFolder.value ();
        return -1;
    }
    const int file = mkostemp (name.data (), O_CLOEXEC);
    if (file >= 0)
        unlink (name.c_str ());
    return file;
}

bool IsNameOfOpenFile (const fs::path& path)
{
    const auto text = fs::absolute (path).lexically_normal ().string ();
    return text.starts_with ("/dev/std") || text.starts_with ("/dev/fd/") || text.starts_with ("/proc/");
}

} // namespace tessaly::tools
