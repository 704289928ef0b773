#pragma once

#include <filesystem>

namespace tessaly::tools
{

/// Of a file that is not there yet, in the folder for temporary files; another one with each call.
std::filesystem::path TemporaryName ();

} // namespace tessaly::tools
