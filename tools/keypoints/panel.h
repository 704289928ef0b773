#pragma once

#include "key_points.h"
#include "parameter_storage_base.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaly::keypoints
{

/// The columns of a set as a user meets them: names and values as on the plug-in's panel. Column j is parameter j + 1.
class Panel
{
public:
    Panel ();

    /// "Drive Offset" and "Makeup Amount", which hosts show without a name, have one here.
    std::string Name (std::uint32_t column) const;
    std::string Units (std::uint32_t column) const;

    /// @return the value as the panel shows it, without blanks; "step N" for a step that the parameter does not have
    std::string Text (std::uint32_t column, std::int32_t step) const;

    /// The step nearest to a value as typed on the panel: a number (TypedStep) within the range, "Drive Offset" and
    /// "Makeup Amount" as 0 to 1; a knee's text in any case, or its index.
    /// @return nothing for any other text
    std::optional<std::int16_t> Step (std::uint32_t column, std::string_view text) const;

    std::string RangeText (std::uint32_t column) const; ///< what Step takes, as "20.0 to 20.0k Hz"
    bool HasStep (std::uint32_t column, std::int32_t step) const;

    /// @return the step of a normalized value, 0 to 1
    std::int16_t StepOfNormalized (std::uint32_t column, float normalized) const;

    float NormalizedOfStep (std::uint32_t column, std::int32_t step) const;

    /// @return a position of the morph, 0 to 120
    float MorphPosition (float normalized) const;

private:
    std::optional<std::int16_t> StepOfEntry (std::int32_t parameter, std::string_view text) const;

    ZParameterStorageBase storage;
};

} // namespace tessaly::keypoints
