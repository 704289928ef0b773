#pragma once

#include <cstdint>

/// The ranges of parameter ids that processor and controller share. Ids below kFirstMeterId are the indexes of the
/// parameter storage.
namespace tessaly
{

inline constexpr std::uint32_t kFirstMeterId = 0x10000000; ///< + meter index, read-only
inline constexpr std::uint32_t kFirstMidiId = 0x20000000;  ///< + controller number
inline constexpr std::uint32_t kEndMidiId = 0x30000000;
inline constexpr std::uint32_t kMidiPitchBend = 129; ///< number of the pitch bend among the MIDI ids
inline constexpr std::uint32_t kMidiNumberCount = 130;

inline constexpr bool IsOrdinaryId (std::uint32_t id)
{
    return id < kFirstMeterId;
}
inline constexpr bool IsMeterId (std::uint32_t id)
{
    return id >= kFirstMeterId && id < kFirstMidiId;
}
inline constexpr bool IsMidiId (std::uint32_t id)
{
    return id >= kFirstMidiId && id < kEndMidiId;
}

} // namespace tessaly
