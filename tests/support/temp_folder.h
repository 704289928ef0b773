#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace tessaly::test
{

/// A folder of a test's own, gone with everything in it when the test ends.
class TempFolder
{
public:
    TempFolder ()
    {
        std::random_device chance;
        do
            path = std::filesystem::temp_directory_path () / ("tessaly-test-" + std::to_string (chance ()));
        while (!std::filesystem::create_directory (path));
    }
    ~TempFolder ()
    {
        std::error_code ignored;
        std::filesystem::remove_all (path, ignored);
    }
    TempFolder (const TempFolder&) = delete;
    TempFolder& operator= (const TempFolder&) = delete;

    std::filesystem::path operator/ (const std::string& name) const { return path / name; }
    const std::filesystem::path& Path () const { return path; }

    std::filesystem::path Write (const std::string& name, const std::string& content) const
    {
        std::ofstream (path / name, std::ios::binary) << content;
        return path / name;
    }

    /// Hidden files count too.
    std::size_t FileCount () const
    {
        const std::filesystem::directory_iterator files (path);
        return static_cast<std::size_t> (std::distance (begin (files), end (files)));
    }

private:
    std::filesystem::path path;
};

inline std::string ReadFile (const std::filesystem::path& file)
{
    std::ifstream in (file, std::ios::binary);
    return { std::istreambuf_iterator<char> (in), {} };
}

} // namespace tessaly::test
