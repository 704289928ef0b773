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

inline constexpr std::int32_t kKeyPointBlockSize = 512;

/// Whether a block is the content of a key-point file. The steps in it are not looked at.
/// @return null when it is; otherwise the reason, as in "it is not 512 bytes long"
const char* KeyPointBlockFault (const void* data, std::int32_t size);

/// Reads the nine key points of a block into the rows 0 to 8; row 9 stays as it was.
/// @return false, with the table as it was, for a block with a fault
bool ReadKeyPointBlock (const void* data, std::int32_t size, KeyPointTable& table);

} // namespace tessaly
