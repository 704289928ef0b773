#pragma once

#include "parameter_records.h"
#include "strip_parameter.h"
#include <array>
#include <cstdint>

namespace tessaly
{

constexpr std::int32_t IndexOf (StripParameter parameter)
{
    return static_cast<std::int32_t> (parameter);
}

/// The strip's parameters, in index order, each with its StepRange. Plain values are whole steps; what a step means is the business of the value
/// scales. "Drive Offset" and "Makeup Amount" have no name: they are the morph's, not the user's.
std::array<ZParameterRecord, kStripParameterCount> ChannelStripRecords ();

/// The one program, "Init1", whose steps are the strip's defaults.
ZProgramRecord ChannelStripProgram ();

} // namespace tessaly
