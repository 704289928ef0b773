#include "typed_value.h"

#include "render_error.h"
#include "strip_ids.h"
#include "text.h"
#include "typed_step.h"

#include <optional>
#include <vector>

namespace tessaly::render
{

using host::ParameterAccess;
using host::ParameterInfo;

namespace
{

[[noreturn]] void Refuse (const ParameterAccess& parameters, const ParameterNames::Entry& entry, std::string_view text)
{
    const bool isNumber = entry.info.stepCount == 0;
    std::string accepted = isNumber ? "a number from " : "one of ";
    accepted += RangeText (parameters, entry.info);
    if (!entry.info.units.empty ())
        accepted += " " + entry.info.units;
    if (entry.info.units == "Hz")
        accepted += ", k standing for thousands";
    throw RenderError ("\"" + std::string (text) + "\" is no value for \"" + entry.name + "\", which takes " +
                       accepted);
}

/// The text of each entry of a list or switch, in order.
std::vector<std::string> EntryTexts (const ParameterAccess& parameters, const ParameterInfo& info)
{
    std::vector<std::string> texts;
    for (int i = 0; i <= info.stepCount; ++i)
        texts.push_back (ValueText (parameters, info, parameters.ToNormalized (info.id, i)));
    return texts;
}

/// A list's or switch's text, or the index of it.
std::optional<double> StepOfEntry (std::string_view text, const ParameterAccess& parameters, const ParameterInfo& info)
{
    const auto texts = EntryTexts (parameters, info);
    for (std::size_t i = 0; i < texts.size (); ++i)
        if (Lowered (text) == Lowered (texts[i]) || text == std::to_string (i))
            return static_cast<double> (i);
    return std::nullopt;
}

std::optional<double> StepOf (std::string_view text, const ParameterAccess& parameters, const ParameterInfo& info)
{
    const double lastStep = parameters.ToPlain (info.id, 1.0);
    if (info.stepCount > 0)
        return StepOfEntry (text, parameters, info);
    if (info.id == kDriveOffsetId || info.id == kMakeupAmountId)
        return keypoints::TypedLinearStep (text, 1.0, lastStep);
    if (info.id == kMorphId)
        return keypoints::TypedLinearStep (text, lastStep, lastStep);
    const auto first = ValueText (parameters, info, 0.0);
    const auto last = ValueText (parameters, info, 1.0);
    return keypoints::TypedStep (static_cast<std::int32_t> (info.id), text, { first, last, info.units });
}

} // namespace

double TypedValue (const ParameterAccess& parameters, const ParameterNames::Entry& entry, std::string_view text)
{
    const std::string_view typed = Trimmed (text);
    const auto step = StepOf (typed, parameters, entry.info);
    if (!step)
        Refuse (parameters, entry, typed);
    return parameters.ToNormalized (entry.info.id, *step);
}

std::string RangeText (const ParameterAccess& parameters, const ParameterInfo& info)
{
    if (info.stepCount == 0)
        return ValueText (parameters, info, 0.0) + " to " + ValueText (parameters, info, 1.0);
    std::string list;
    for (const std::string& text : EntryTexts (parameters, info))
        list += (list.empty () ? "" : ", ") + text;
    return list;
}

std::string ValueText (const ParameterAccess& parameters, const ParameterInfo& info, double normalized)
{
    return std::string (Trimmed (parameters.Text (info.id, normalized)));
}

} // namespace tessaly::render
