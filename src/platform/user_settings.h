#pragma once

#include <optional>
#include <string_view>

namespace tessaly
{

/// Small settings that the user makes on the panel and finds again in the next window: numbers by name, in a text file
/// of lines "name = number". What can't be read counts as not set.
std::optional<double> ReadUserSetting (std::string_view name);

/// Keeps the other settings. The file is written anew and takes the old one's place whole, so that a reader never
/// finds a part of it. @return false, and the old file stays, when it can't be written
bool WriteUserSetting (std::string_view name, double value);

} // namespace tessaly
