#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tessaly::stage
{

using Png = std::vector<std::byte>; // a file's bytes

using Pictures = std::map<std::string, Png>; // by name, without folder and extension

/// Writes each to `folder`/NAME.png: all of them or, when something goes wrong before the last is written, none.
/// @throws std::runtime_error for a file that can't be written
void WritePictures (const Pictures& pictures, const std::filesystem::path& folder);

} // namespace tessaly::stage
