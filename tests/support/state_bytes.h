#pragma once

#include "strip_facts.h"
#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// Stored states put together byte by byte, apart from the code that writes them.
namespace tessaly::test
{

using Bytes = std::string; // compares and cuts easily; any bytes

inline Bytes Little (std::uint64_t number, std::size_t width)
{
    Bytes bytes;
    for (std::size_t i = 0; i < width; ++i)
        bytes += static_cast<char> (number >> 8 * i & 0xFF);
    return bytes;
}

inline Bytes Big (std::uint64_t number, std::size_t width)
{
    const auto little = Little (number, width);
    return { little.rbegin (), little.rend () };
}

inline Bytes Chunk (const Bytes& id, const Bytes& payload)
{
    return id + Little (payload.size (), 4) + payload;
}

inline Bytes WideChunk (const Bytes& id, const Bytes& payload)
{
    return Bytes (4, '\0') + id + Little (payload.size (), 8) + payload;
}

inline Bytes Values (const std::vector<float>& values)
{
    Bytes bytes;
    for (const float value : values)
        bytes += Little (std::bit_cast<std::uint32_t> (value), 4);
    return bytes;
}

/// A set of ten rows that are all alike: column j holds step + j.
inline Bytes KeyPoints (Bytes name, int step)
{
    name.resize (256);
    for (int row = 0; row < 10; ++row)
        for (int column = 0; column < 17; ++column)
            name += Little (static_cast<std::uint16_t> (step + column), 2);
    return name;
}

inline Bytes Format ()
{
    return Chunk ("FINF", Little (2, 4));
}

inline Bytes Tree (const Bytes& inside)
{
    return Chunk ("CHST", inside);
}

/// The whole state of an instance; its head holds the first values only.
inline Bytes State (const std::vector<float>& values, const Bytes& keyPoints)
{
    Bytes head = "2620";
    for (const float value : std::span (values).first (std::min (values.size (), kHeadValues)))
        head += Big (std::bit_cast<std::uint32_t> (value), 4);
    return head + Tree (Format () + Chunk ("KPD ", keyPoints) + Chunk ("PRM ", Values (values)));
}

} // namespace tessaly::test
