#pragma once

#include "strip_parameter.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// The steps that a parameter can have, both ends inclusive, and that of a new instance.
struct StepRange
{
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::int32_t init = 0;
};

/// By the parameters' index. Stored projects and key points hold steps, and hosts the normalized values that these
/// ranges make of them, so a range never changes.
// clang-format off
inline constexpr std::array<StepRange, kStripParameterCount> kStepRanges { {
    {  0, 200, 100 }, // drive
    { 57, 283, 221 }, // attack: 12.49 ms
    { 24, 300, 164 }, // release: 100.1 ms
    {  0, 120, 120 }, // ratio: none
    {  0,   2,   1 }, // knee: middle
    {  0, 200, 100 }, // drive offset: 0 dB
    {  0, 200, 100 }, // makeup amount
    {  4, 124,  60 }, // side chain: 500 Hz
    {  0, 360, 180 }, //   0 dB
    {  0,  60,  20 },
    { 60, 124, 112 }, // high: 10 kHz
    {  0, 360, 180 },
    {  4, 124,  84 }, // mid: 2 kHz
    {  0, 360, 180 },
    {  0,  60,  20 },
    {  4,  72,  32 }, // low: 100 Hz
    {  0, 360, 180 },
    {  0, 360, 180 }, // total gain
    {  0,   1,   0 }, // the two section bypasses
    {  0,   1,   0 },
    {  0, 120,   0 }, // morph: 15 to a key point
    {  0,   1,   0 }, // bypass
} };
// clang-format on
static_assert (kStepRanges.back ().last > 0, "a row for each parameter");

constexpr const StepRange& StepsOf (StripParameter parameter)
{
    return kStepRanges[static_cast<std::size_t> (parameter)];
}

} // namespace tessaly
