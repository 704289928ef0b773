#pragma once

#include <cstdint>

namespace tessaly::skin
{

inline constexpr std::int32_t kDialFrames = 101; // 0 to 100 % of a dial's turn

/// The columns of a dial's strip.
enum DialColumn : std::int32_t
{
    kNormal = 0,
    kLit = 1,
    kOff = 2,
    kModified = 2 // of the morph dial, which is never off
};

/// Angle of a frame, degrees clockwise from straight below.
constexpr double DialDegree (std::int32_t frame)
{
    return 30.0 + 3.0 * frame;
}

} // namespace tessaly::skin
