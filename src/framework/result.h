#pragma once

#include <cstdint>

namespace tessaly
{

/// Result codes of the framework's operations.
inline constexpr std::int32_t kOk = 0;
inline constexpr std::int32_t kFailed = 999;

} // namespace tessaly
