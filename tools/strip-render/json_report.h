#pragma once

#include "parameter_access.h"
#include "summary.h"

#include <iosfwd>
#include <nlohmann/json.hpp>

namespace tessaly::render
{

using Json = nlohmann::ordered_json;

// What the tool tells, for programs. Levels in dB; one of silence is null.

Json ToJson (const host::ParameterAccess& parameters); ///< what can be set, in a list

/// @param dryRun  nothing but files and formats is known
Json ToJson (const Summary& summary, bool dryRun);

/// Two blanks a level, and a new line. A file's name may hold any bytes; those that are no UTF-8 are replaced.
void Print (std::ostream& out, const Json& json);

} // namespace tessaly::render
