#pragma once

#include "png_file.h"
#include <filesystem>
#include <map>
#include <string>

namespace tessaly::stage
{

using drawing::Png;
using drawing::PngOf;

using Pictures = std::map<std::string, Png>; // by name, without folder and extension

/// Writes each to `folder`/NAME.png: all of them or, when something goes wrong before the last is written, none.
/// @throws std::runtime_error for a file that can't be written
void WritePictures (const Pictures& pictures, const std::filesystem::path& folder);

} // namespace tessaly::stage
