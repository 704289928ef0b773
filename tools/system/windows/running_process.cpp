#include "running_process.h"

#include <array>
#include <csignal>
#include <initializer_list>
#include <io.h>
#include <memory>
#include <windows.h>

#include <shlobj.h>

namespace tessaly::tools
{

namespace fs = std::filesystem;

namespace
{

constexpr int kError = 2; // the descriptor of standard error

struct FreeTaskMemory
{
    void operator() (wchar_t* text) const { CoTaskMemFree (text); }
};

void AddFolder (std::vector<fs::path>& folders, const KNOWNFOLDERID& id, const wchar_t* below)
{
    wchar_t* found = nullptr;
    const auto result = SHGetKnownFolderPath (id, 0, nullptr, &found);
    const std::unique_ptr<wchar_t, FreeTaskMemory> folder (found);
    if (SUCCEEDED (result))
        folders.push_back (fs::path (folder.get ()) / below);
}

} // namespace

std::uint32_t ProcessNumber ()
{
    return GetCurrentProcessId ();
}

fs::path ProgramPath ()
{
    std::array<wchar_t, 32768> path{}; // the longest that there is
    const auto length = GetModuleFileNameW (nullptr, path.data (), static_cast<DWORD> (path.size ()));
    return fs::path (path.data (), path.data () + length);
}

bool IsErrorTerminal ()
{
    return _isatty (kError) != 0;
}

std::vector<fs::path> PluginFolders ()
{
    std::vector<fs::path> folders;
    AddFolder (folders, FOLDERID_LocalAppData, L"Programs\\Common\\VST3");
    AddFolder (folders, FOLDERID_ProgramFilesCommon, L"VST3");
    return folders;
}

void NoteInterrupts (void (*note) (int))
{
    for (const int number : { SIGINT, SIGTERM, SIGBREAK }) // the system forgets the handler with the first one
        std::signal (number, note);
}

} // namespace tessaly::tools
