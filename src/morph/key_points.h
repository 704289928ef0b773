#pragma once

#include <array>
#include <cstdint>

namespace tessaly
{

inline constexpr std::uint32_t kKeyPointRows = 10;    // nine key points, and a row that only stored states fill
inline constexpr std::uint32_t kKeyPointColumns = 17; // the morphed parameters
inline constexpr std::int16_t kEmptyCell = -1;        // one such cell makes its whole row empty
inline constexpr std::int32_t kNoParameter = -2;

/// The steps of one key point: column j is parameter j + 1.
using KeyPointRow = std::array<std::int16_t, kKeyPointColumns>;

/// One key-point set: rows of steps between which the morph moves. A value; no thread of its own.
struct KeyPointSet
{
    std::array<KeyPointRow, kKeyPointRows> rows;

    bool HasKeyPoint (std::uint32_t row) const;                                     ///< bad row: false
    std::int32_t KeyPointStep (std::uint32_t row, std::uint32_t column) const;      ///< bad place: -1
    static std::int32_t KeyPointParameter (std::uint32_t row, std::uint32_t column) ///< bad place: -2
    {
        return row < kKeyPointRows && column < kKeyPointColumns ? static_cast<std::int32_t> (column) + 1 : kNoParameter;
    }
};

/// The set of an instance that loaded no other one.
extern const KeyPointSet builtInKeyPoints;

} // namespace tessaly
