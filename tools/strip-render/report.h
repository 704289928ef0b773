#pragma once

#include "parameter_access.h"
#include "summary.h"

#include <iosfwd>
#include <string>

namespace tessaly::render
{

/// Prints every parameter: name, range, unit, default and present text; meters too, which cannot be set.
void PrintParameters (std::ostream& out, const host::ParameterAccess& parameters);

/// Prints what was rendered, where it is, how loud it was and is, and the largest gain reduction.
void PrintSummary (std::ostream& out, const Summary& summary);

/// Prints what would be written.
void PrintPlan (std::ostream& out, const Summary& summary);

/// @return loudness, range and true peak as a line
std::string LoudnessText (const Loudness& loudness);

} // namespace tessaly::render
