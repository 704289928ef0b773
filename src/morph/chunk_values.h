#pragma once

#include "stream.h"
#include <algorithm>
#include <bit>
#include <cstdint>

namespace tessaly
{

// Numbers and ids of a tree of chunks. In the stream the letters of an id stand in reading order, and all other numbers
// with their lowest byte first, whatever the machine.

enum MachineOrder : std::int32_t
{
    kOtherOrder = -1,
    kLowestByteFirst = 0,
    kHighestByteFirst = 1
};

/// The order of this machine, of MachineOrder.
std::int32_t DetectByteOrder ();

template <typename Number>
Number Swapped (Number number)
{
    auto* bytes = reinterpret_cast<std::uint8_t*> (&number);
    std::reverse (bytes, bytes + sizeof (number));
    return number;
}

/// @return false, with the number as it was, when fewer bytes arrive than it has
template <typename Number>
bool ReadSwapped (ZStream& stream, bool swap, Number& number)
{
    Number arrived{};
    if (stream.Read (&arrived, sizeof (arrived)) != static_cast<std::int32_t> (sizeof (arrived)))
        return false;
    number = swap ? Swapped (arrived) : arrived;
    return true;
}

/// An id of four letters, or of eight bytes in the wide form. @return as ReadSwapped
template <typename Id>
bool ReadId (ZStream& stream, std::int32_t order, Id& id)
{
    return ReadSwapped (stream, order == kLowestByteFirst, id);
}

/// A number of any width. @return as ReadSwapped
template <typename Number>
bool ReadNumber (ZStream& stream, std::int32_t order, Number& number)
{
    return ReadSwapped (stream, order == kHighestByteFirst, number);
}

inline void WriteId (ZStream& stream, std::int32_t order, std::uint32_t id)
{
    const auto stored = order == kLowestByteFirst ? Swapped (id) : id;
    stream.Write (&stored, sizeof (stored));
}

template <typename Number>
void WriteNumber (ZStream& stream, std::int32_t order, Number number)
{
    const auto stored = order == kHighestByteFirst ? Swapped (number) : number;
    stream.Write (&stored, sizeof (stored));
}

} // namespace tessaly
