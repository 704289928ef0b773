#include "kprd_linux_collection_imp.h"

#include "utf8.h"
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <set>
#include <string>
#include <string_view>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tessaly
{

namespace
{

constexpr const char* kExtension = "kpd";

/// A file descriptor with an owner.
class Descriptor
{
public:
    explicit Descriptor (int opened)
        : number (opened)
    {
    }
    ~Descriptor ()
    {
        if (number >= 0)
            close (number);
    }
    Descriptor (const Descriptor&) = delete;
    Descriptor& operator= (const Descriptor&) = delete;

    int Number () const { return number; }
    int Release () { return std::exchange (number, -1); }

private:
    int number;
};

struct CloseFolder
{
    void operator() (DIR* folder) const { closedir (folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

/// @param above  descriptor of the folder that a relative path begins at
Folder OpenFolder (int above, const char* path)
{
    Descriptor opened (openat (above, path, O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC));
    Folder folder (opened.Number () >= 0 ? fdopendir (opened.Number ()) : nullptr);
    if (folder)
        opened.Release ();
    return folder;
}

/// @return the name without extension; empty for a file of another kind
std::string SetName (std::string_view fileName)
{
    const auto dot = fileName.rfind ('.');
    if (dot == fileName.npos || strcasecmp (std::string (fileName.substr (dot + 1)).c_str (), kExtension) != 0)
        return {};
    return std::string (fileName.substr (0, dot));
}

/// The reading of one collection folder, as far as its bounds go.
class Scan
{
public:
    /// In the order of the names' bytes, whatever the disk's.
    void Read (DIR* folder, bool withFolders, KPRD_Entries& list)
    {
        for (const auto& name : Names (folder))
            if (bytesLeft > 0)
                Add (dirfd (folder), name, withFolders, list);
    }

private:
    std::set<std::string> Names (DIR* folder)
    {
        std::set<std::string> names;
        for (const dirent* found = nullptr; entriesLeft > 0 && (found = readdir (folder)) != nullptr; --entriesLeft)
            if (const std::string_view name = found->d_name; name != "." && name != ".." && IsUtf8 (name))
                names.emplace (name);
        return names;
    }

    void Add (int folder, const std::string& name, bool withFolders, KPRD_Entries& list)
    {
        struct stat status
        {
        };
        if (fstatat (folder, name.c_str (), &status, 0) != 0)
            return;
        if (S_ISDIR (status.st_mode) && withFolders)
            AddFolder (folder, name, list);
        else if (const auto setName = SetName (name); S_ISREG (status.st_mode) && !setName.empty ())
            AddFile (folder, name, setName, list);
    }

    void AddFolder (int above, const std::string& name, KPRD_Entries& list)
    {
        auto entry = std::make_unique<KPRD_Data> ();
        auto& children = entry->SetName (name.c_str ());
        if (const auto folder = OpenFolder (above, name.c_str ()))
            Read (folder.get (), false, children);
        list.push_back (std::move (entry));
    }

    void AddFile (int folder, const std::string& name, const std::string& setName, KPRD_Entries& list)
    {
        // Looked at again once open: a FIFO may have taken the name since
        const Descriptor file (openat (folder, name.c_str (), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        struct stat status
        {
        };
        if (file.Number () < 0 || fstat (file.Number (), &status) != 0 || !S_ISREG (status.st_mode))
            return;
        const auto size = std::min<std::int64_t> (status.st_size, KPRD_LinuxCollectionImp::kLongestFile);
        auto entry = std::make_unique<KPRD_Data> ();
        auto* bytes = entry->SetFile (setName.c_str (), static_cast<std::uint32_t> (size));
        ReadInto (file.Number (), bytes, size);
        bytesLeft -= size;
        list.push_back (std::move (entry));
    }

    /// What a file has lost since its size was asked for stays zero.
    static void ReadInto (int file, std::uint8_t* bytes, std::int64_t size)
    {
        while (size > 0)
        {
            const auto count = read (file, bytes, static_cast<std::size_t> (size));
            if (count <= 0)
                return;
            bytes += count;
            size -= count;
        }
    }

    std::int32_t entriesLeft = KPRD_LinuxCollectionImp::kMostEntries;
    std::int64_t bytesLeft = KPRD_LinuxCollectionImp::kMostBytes;
};

} // namespace

KPRD_LinuxCollectionImp::KPRD_LinuxCollectionImp (std::vector<std::filesystem::path> folders)
    : paths (std::move (folders))
{
}

void KPRD_LinuxCollectionImp::Load (KPRD_Entries& list)
{
    std::set<std::pair<dev_t, ino_t>> seen;
    for (const auto& path : paths)
    {
        const auto folder = OpenFolder (AT_FDCWD, path.c_str ());
        struct stat status
        {
        };
        if (!folder || fstat (dirfd (folder.get ()), &status) != 0)
            continue;
        if (seen.emplace (status.st_dev, status.st_ino).second)
            Scan ().Read (folder.get (), true, list);
    }
}

} // namespace tessaly
