#include "kprd_win_collection_imp.h"

#include "ansi_text.h"
#include "ascii_case.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string_view>
#include <utility>
#include <windows.h>

#include <shlobj.h>

namespace tessaly
{

namespace
{

constexpr std::string_view kExtension = "kpd";
constexpr const char* kBelowDocuments = "\\Hollin\\KPRD";

struct CloseFind
{
    using pointer = HANDLE;
    void operator() (HANDLE search) const { FindClose (search); }
};

struct CloseFile
{
    void operator() (std::FILE* file) const { std::fclose (file); }
};

bool IsFolder (DWORD attributes)
{
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool HasExtension (std::string_view fileName, std::size_t dot)
{
    return std::ranges::equal (fileName.substr (dot + 1), kExtension, {}, [] (char c) { return AsciiLower (c); });
}

/// @return the bytes that were read of it
std::uint32_t AddFile (const std::string& file, std::string_view fileName, std::uint64_t size, KPRD_Entries& list)
{
    const auto dot = fileName.rfind ('.');
    if (dot == fileName.npos || !HasExtension (fileName, dot))
        return 0;
    const std::unique_ptr<std::FILE, CloseFile> opened (std::fopen (file.c_str (), "rb"));
    const auto name = Utf8OfAnsi (fileName.substr (0, dot));
    if (!opened || name.empty ())
        return 0;
    const auto length =
        static_cast<std::uint32_t> (std::min<std::uint64_t> (size, KPRD_WinCollectionImp::kLongestFile));
    auto entry = std::make_unique<KPRD_Data> ();
    auto* bytes = entry->SetFile (name.c_str (), length);
    std::fread (bytes, 1, length, opened.get ()); // what the file has lost since it was listed stays zero
    list.push_back (std::move (entry));
    return length;
}

} // namespace

bool KPRD_WinCollectionImp::Locate ()
{
    std::array<char, MAX_PATH> documents{};
    if (!SHGetSpecialFolderPathA (nullptr, documents.data (), CSIDL_COMMON_DOCUMENTS, FALSE))
        return false;
    path = std::string (documents.data ()) + kBelowDocuments;
    const auto attributes = GetFileAttributesA (path.c_str ());
    return attributes != INVALID_FILE_ATTRIBUTES && IsFolder (attributes);
}

void KPRD_WinCollectionImp::Load (KPRD_Entries& list)
{
    if (Locate ())
        Scan (0, path + "\\*", list);
}

void KPRD_WinCollectionImp::Scan (std::int32_t depth, const std::string& pattern, KPRD_Entries& list)
{
    if (depth == 0)
        entriesLeft = kMostEntries, bytesLeft = kMostBytes;
    const auto folder = pattern.substr (0, pattern.size () - 1);
    WIN32_FIND_DATAA found{};
    const HANDLE first = FindFirstFileA (pattern.c_str (), &found);
    if (first == INVALID_HANDLE_VALUE)
        return;
    const std::unique_ptr<void, CloseFind> search (first);
    do
    {
        const std::string name = found.cFileName;
        if (!IsFolder (found.dwFileAttributes))
            bytesLeft -=
                AddFile (folder + name, name, std::uint64_t{ found.nFileSizeHigh } << 32U | found.nFileSizeLow, list);
        else if (depth == 0 && name != "." && name != "..")
        {
            list.push_back (std::make_unique<KPRD_Data> ());
            Scan (depth + 1, folder + name + "\\*", list.back ()->SetName (name.c_str ()));
        }
    } while (--entriesLeft > 0 && bytesLeft > 0 && FindNextFileA (search.get (), &found));
}

} // namespace tessaly
