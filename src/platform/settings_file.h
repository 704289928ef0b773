#pragma once

#include <cstdint>
#include <filesystem>

namespace tessaly
{

// What the user's settings need of the system.

/// Where they are kept, whether it exists or not. @return empty when the user has no place for settings
std::filesystem::path SettingsFile ();

/// Tells this process from all others that run.
std::uint32_t ProcessNumber ();

} // namespace tessaly
