#include "settings_file.h"

#include <memory>
#include <windows.h>

#include <shlobj.h>

namespace tessaly
{

namespace fs = std::filesystem;

namespace
{

constexpr const wchar_t* kBelowApplicationData = L"tessaly-bench\\panel.conf";

struct FreeTaskMemory
{
    void operator() (wchar_t* text) const { CoTaskMemFree (text); }
};

} // namespace

fs::path SettingsFile ()
{
    wchar_t* found = nullptr;
    const auto result = SHGetKnownFolderPath (FOLDERID_RoamingAppData, 0, nullptr, &found);
    const std::unique_ptr<wchar_t, FreeTaskMemory> folder (found);
    return SUCCEEDED (result) ? fs::path (folder.get ()) / kBelowApplicationData : fs::path ();
}

std::uint32_t ProcessNumber ()
{
    return GetCurrentProcessId ();
}

} // namespace tessaly
