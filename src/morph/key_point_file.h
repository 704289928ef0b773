#pragma once

#include "key_points.h"
#include <cstdint>

namespace tessaly
{

// The bytes of a key-point file, 512 of them, every number with its highest byte first:
//
//   0    "KPRD"
//   4    seven words that are read past
//   32   nine records of 40 bytes: the steps of the parameters 1 to 17 as int16, six bytes that are read past
//   392  120 bytes that are not read

inline constexpr std::int32_t kKeyPointFileSize = 512;

/// Whether bytes are those of a key-point file. The steps in them are not looked at.
/// @return null when it is; otherwise the reason, as in "it is not 512 bytes long"
const char* KeyPointFileFault (const void* data, std::int32_t size);

/// Reads the nine key points of a file into the rows 0 to 8; row 9 stays as it was.
/// @return false, with the set as it was, for a file with a fault
bool ReadKeyPointFile (const void* data, std::int32_t size, KeyPointSet& set);

} // namespace tessaly
