#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessaly::stage
{

struct PanelOptions
{
    double scale = 1.0;                            ///< 1 to 3
    std::filesystem::path output = ".";            ///< folder of the pictures
    std::string name = "panel";                    ///< of the last picture, without extension
    std::vector<std::string> settings;             ///< NAME=VALUE, as typed on the panel
    std::optional<std::filesystem::path> state;    ///< a preset or a state chunk
    std::optional<std::filesystem::path> set;      ///< a key-point file
    std::vector<std::filesystem::path> collection; ///< folders that the file dialog lists
    std::optional<std::filesystem::path> script;   ///< input to play; see script.h
    bool listControls = false;                     ///< print what every pixel's control is
};

/// Options to go on with, or the exit status of a call that has ended: help, or a mistake, whose text is printed.
struct ParsedPanelOptions
{
    std::optional<PanelOptions> options;
    int exitStatus = 0;
};

ParsedPanelOptions ParsePanelOptions (int argc, const char* const* argv);

} // namespace tessaly::stage
