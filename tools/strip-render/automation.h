#pragma once

#include "parameter_access.h"
#include "parameter_names.h"
#include "setting.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tessaly::render
{

/// Reads "NAME=VALUE", the value as typed on the panel.
/// @throws RenderError that quotes the text
Setting ReadSetting (const host::ParameterAccess& parameters, const ParameterNames& names, const std::string& text);

/// Reads a table of time in seconds, parameter and value, a row a line (csv.h). Empty lines and lines that begin with # are left out, and so is a first line whose first
/// field begins with "time".
/// @return the rows by time; rows of one time keep their order
/// @throws RenderError that names file and line
std::vector<TimedSetting> ReadAutomation (const host::ParameterAccess& parameters, const ParameterNames& names,
                                          const std::filesystem::path& file);

} // namespace tessaly::render
