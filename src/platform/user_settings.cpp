#include "user_settings.h"

#include "number_text.h"
#include "settings_file.h"
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <system_error>

namespace tessaly
{

namespace fs = std::filesystem;

namespace
{

constexpr std::streamsize kLongestFile = 65536; // bytes; a longer one is not ours

using Settings = std::map<std::string, std::string, std::less<>>;

std::string_view Trimmed (std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of (kBlanks);
    return first == text.npos ? "" : text.substr (first, text.find_last_not_of (kBlanks) - first + 1);
}

Settings ReadAll (const fs::path& path)
{
    Settings settings;
    std::error_code error;
    if (const auto size = fs::file_size (path, error); error || size > kLongestFile)
        return settings;
    std::ifstream file (path, std::ios::binary);
    for (std::string line; std::getline (file, line);)
        if (const auto sign = line.find ('='); sign != line.npos)
            settings[std::string (Trimmed (std::string_view (line).substr (0, sign)))] =
                Trimmed (std::string_view (line).substr (sign + 1));
    return settings;
}

bool WriteAll (const fs::path& path, const Settings& settings)
{
    std::ofstream file (path, std::ios::binary | std::ios::trunc);
    for (const auto& [name, value] : settings)
        file << name << " = " << value << '\n';
    return static_cast<bool> (file.flush ());
}

} // namespace

std::optional<double> ReadUserSetting (std::string_view name)
{
    const auto settings = ReadAll (SettingsFile ());
    const auto found = settings.find (name);
    if (found == settings.end ())
        return std::nullopt;
    const auto number = ParseNumber (found->second);
    if (number.length == 0)
        return std::nullopt;
    return number.value;
}

bool WriteUserSetting (std::string_view name, double value)
{
    const auto path = SettingsFile ();
    if (path.empty ())
        return false;
    auto settings = ReadAll (path);
    settings[std::string (name)] = FixedText (value, 0, 2);
    std::error_code error;
    fs::create_directories (path.parent_path (), error);
    const auto working = path.parent_path () / (".panel-" + std::to_string (ProcessNumber ()) + ".part");
    const bool written = WriteAll (working, settings);
    if (written)
        fs::rename (working, path, error);
    if (written && !error)
        return true;
    fs::remove (working, error);
    return false;
}

} // namespace tessaly
