#include "open_files.h"

#include "running_process.h"
#include "temporary_name.h"
#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

namespace tessaly::tools
{

namespace fs = std::filesystem;

namespace
{

constexpr int kInput = 0;
constexpr int kOutput = 1;

unsigned AtOnce (std::size_t count)
{
    return static_cast<unsigned> (std::min<std::size_t> (count, INT_MAX));
}

} // namespace

int OpenToRead (const fs::path& path)
{
    return _wopen (path.c_str (), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}

int OpenToWrite (const fs::path& path)
{
    return _wopen (path.c_str (), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
}

int Duplicate (int file)
{
    const int copy = _dup (file);
    if (copy >= 0)
        _setmode (copy, _O_BINARY);
    return copy;
}

int DuplicateInput ()
{
    return Duplicate (kInput);
}

int DuplicateOutput ()
{
    return Duplicate (kOutput);
}

bool CreateNew (const fs::path& path)
{
    const int file =
        _wopen (path.c_str (), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    return file >= 0 && Close (file);
}

bool RenameToNew (const fs::path& from, const fs::path& to)
{
    if (MoveFileExW (from.c_str (), to.c_str (), 0) != 0)
        return true;
    const auto error = GetLastError ();
    errno = error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS ? EEXIST : EIO;
    return false;
}

std::int64_t ReadSome (int file, void* bytes, std::size_t count)
{
    return _read (file, bytes, AtOnce (count));
}

std::int64_t WriteSome (int file, const void* bytes, std::size_t count)
{
    return _write (file, bytes, AtOnce (count));
}

std::int64_t ReadSomeAt (int file, std::int64_t offset, void* bytes, std::size_t count)
{
    const auto place = _telli64 (file);
    if (_lseeki64 (file, offset, SEEK_SET) < 0)
        return -1;
    const auto done = ReadSome (file, bytes, count);
    _lseeki64 (file, place, SEEK_SET);
    return done;
}

std::int64_t Rewind (int file)
{
    const auto size = _lseeki64 (file, 0, SEEK_END);
    _lseeki64 (file, 0, SEEK_SET);
    return size;
}

bool IsOrdinary (int file)
{
    return GetFileType (reinterpret_cast<HANDLE> (_get_osfhandle (file))) == FILE_TYPE_DISK;
}

bool Close (int file)
{
    return _close (file) == 0;
}

int OpenTemporary ()
{
    return _wopen (TemporaryName ().c_str (), _O_CREAT | _O_EXCL | _O_RDWR | _O_BINARY | _O_NOINHERIT | _O_TEMPORARY,
                   _S_IREAD | _S_IWRITE);
}

/// The names of devices are such in every folder and with any extension.
bool IsNameOfOpenFile (const fs::path& path)
{
    const auto name = path.stem ().wstring ();
    for (const wchar_t* const device : { L"CON", L"CONIN$", L"CONOUT$", L"NUL", L"AUX", L"PRN" })
        if (_wcsicmp (name.c_str (), device) == 0)
            return true;
    return path.native ().starts_with (L"\\\\.\\");
}

} // namespace tessaly::tools
