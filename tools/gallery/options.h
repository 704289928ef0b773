#pragma once

#include <filesystem>
#include <optional>

namespace tessaly::gallery
{

struct Options
{
    double scale = 1.0;
    std::filesystem::path output = "."; ///< folder
    std::optional<std::filesystem::path> script;
};

/// Options to go on with, or the exit status of a call that has ended: help, or a mistake, whose text is printed.
struct ParsedOptions
{
    std::optional<Options> options;
    int exitStatus = 0;
};

ParsedOptions ParseOptions (int argc, const char* const* argv);

} // namespace tessaly::gallery
