#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessaly::render
{

/// Silence to run through the plug-in after the recording.
struct Tail
{
    double seconds = 0.0;
    bool full = false; ///< as long as the plug-in says that it sounds; `seconds` is then not looked at
};

/// The command line, read and checked as far as it can be without files and without the plug-in.
struct Options
{
    std::filesystem::path input;                    ///< empty: nothing to render
    std::filesystem::path output;                   ///< empty: nothing to render
    std::optional<std::filesystem::path> state;     ///< to begin with, ahead of the settings
    std::optional<std::string> keyPoints;           ///< file or name of a set to use, ahead of the settings
    std::optional<std::filesystem::path> saveState; ///< where to write the state that the settings make
    std::vector<std::string> settings;              ///< each NAME=VALUE, in the order given
    std::optional<std::filesystem::path> automation;
    std::optional<std::filesystem::path> meters;
    std::optional<std::filesystem::path> plugin;
    std::optional<std::string> format;
    Tail tail;
    int blockSize = 512; ///< frames, 1 to 65536
    bool realtime = false;
    bool bypass = false;
    bool list = false;

    bool Renders () const { return !list && !output.empty (); }
};

/// What the command line comes to: options to go on with, or the exit status of a call that has ended (help, version,
/// a mistake in the line; its text is printed).
struct ParsedOptions
{
    std::optional<Options> options;
    int exitStatus = 0;
};

ParsedOptions ParseOptions (int argc, const char* const* argv);

} // namespace tessaly::render
