#pragma once

#include <filesystem>
#include <vector>

namespace tessaly::render
{

/// Where the plug-in's bundle may be, most likely first: beside the program as it is built and as it is installed, then
/// where VST 3 plug-ins live on this system.
std::vector<std::filesystem::path> BundleCandidates (const std::filesystem::path& programFolder);

/// @return the first candidate that is there
/// @throws RenderError that lists where it looked
std::filesystem::path FindBundle ();

} // namespace tessaly::render
