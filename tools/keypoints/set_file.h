#pragma once

#include "key_point_file.h"
#include "key_points.h"
#include "pending_file.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

namespace tessaly::keypoints
{

using SetBytes = std::array<std::uint8_t, kKeyPointFileSize>;

/// A set as a key-point file holds it: the rows 0 to 8, an empty row as cells of -1. What the plug-in reads past is 0.
SetBytes ToBytes (const KeyPointSet& table);

/// A set without any key point.
KeyPointSet EmptySet ();

/// Why the plug-in would not take a file: another extension, no ordinary file, another content. @return empty if it
/// would
std::string SetFault (const std::filesystem::path& file);

/// @return rows 0 to 8 of a key-point file, row 9 empty
/// @throws SetError with the reason when it is none
KeyPointSet ReadSetFile (const std::filesystem::path& file);

using host::Existing;

/// Writes a key-point file, which appears whole or not at all.
/// @throws SetError, HostError with the reason when it cannot be written or may not
void WriteSetFile (const std::filesystem::path& file, const KeyPointSet& table, Existing existing);

/// Copies a key-point file byte for byte, likewise. @throws SetError when `from` is none
void CopySetFile (const std::filesystem::path& from, const std::filesystem::path& to, Existing existing);

bool HasSetExtension (const std::filesystem::path& file); ///< "kpd", in any case

/// @return the number of filled rows among the nine
int CountKeyPoints (const KeyPointSet& table);

inline constexpr std::uint32_t kSetRows = 9;

} // namespace tessaly::keypoints
