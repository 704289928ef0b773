#pragma once

#include <array>
#include <cstdint>

namespace tessaly
{

/// Time-stamped states of one kind of MIDI data: a ring in which every record is a complete state, and the states at
/// the start of the block (First), at its end (Last) and after the newest write (Latest). What is written during a
/// block is seen from the next BeginBlock on. Audio thread; nothing checks for overflow.
template <typename T, std::uint32_t Capacity>
class ZTemplateMidiBufferInfo
{
public:
    void Set (const T& state) ///< all three states, and drops what waits
    {
        first = latest = last = state;
        readIndex = endIndex = writeIndex = 0;
    }

    void Write (const T& state, std::int32_t time)
    {
        ring[writeIndex] = { state, time };
        latest = state;
        writeIndex = (writeIndex + 1) % Capacity;
    }

    const T& First () const { return first; }
    const T& Latest () const { return latest; }
    const T& Last () const { return last; }

    /// The state at a sample time of the block.
    const T& At (std::int32_t time) const
    {
        const auto end = FirstAbove (time);
        if (end == readIndex)
            return first;
        return end == endIndex ? last : ring[Before (end)].state;
    }

    std::int32_t Count () const ///< records of the block
    {
        return static_cast<std::int32_t> ((endIndex + Capacity - readIndex) % Capacity);
    }

    std::int32_t NextTime (std::int32_t time) const ///< of the first record after that time; -1 for none
    {
        const auto next = FirstAbove (time);
        return next == endIndex ? -1 : ring[next].time;
    }

    void BeginBlock ()
    {
        endIndex = writeIndex;
        first = last;
        if (readIndex != endIndex)
            last = ring[Before (endIndex)].state;
    }

    void EndBlock () { readIndex = endIndex; }

private:
    struct Record
    {
        T state{};
        std::int32_t time = 0;
    };

    static std::uint32_t Before (std::uint32_t index) { return (index + Capacity - 1) % Capacity; }

    std::uint32_t FirstAbove (std::int32_t time) const
    {
        auto index = readIndex;
        while (index != endIndex && time >= ring[index].time)
            index = (index + 1) % Capacity;
        return index;
    }

    std::array<Record, Capacity> ring{};
    T first{};
    T latest{};
    T last{};
    std::uint32_t readIndex = 0;  // oldest record of the block
    std::uint32_t endIndex = 0;   // end of the block's records
    std::uint32_t writeIndex = 0; // next free record
};

} // namespace tessaly
