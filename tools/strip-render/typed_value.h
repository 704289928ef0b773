#pragma once

#include "parameter_access.h"
#include "parameter_names.h"

#include <string>
#include <string_view>

namespace tessaly::render
{

/// Reads a value as typed on the plug-in's panel: a number within the range, perhaps with its unit (TypedStep), "INF"
/// for the last ratio; a list's or switch's text in any case, or its index; "Drive Offset" and "Makeup Amount" as 0 to
/// 1; "Morph" as 0 to 120.
/// @return the normalized value
/// @throws RenderError that tells what is accepted
double TypedValue (const host::ParameterAccess& parameters, const ParameterNames::Entry& entry, std::string_view text);

/// @return what TypedValue accepts for the parameter, as "0.00 to 10.00" or "Soft, Middle, Hard"
std::string RangeText (const host::ParameterAccess& parameters, const host::ParameterInfo& info);

/// @return the parameter's text at a normalized value, without the blanks that pad it
std::string ValueText (const host::ParameterAccess& parameters, const host::ParameterInfo& info, double normalized);

} // namespace tessaly::render
