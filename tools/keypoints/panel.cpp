#include "panel.h"

#include "channel_strip_parameters.h"
#include "text.h"
#include "typed_step.h"

#include <array>

namespace tessaly::keypoints
{

namespace
{

constexpr auto kKnee = IndexOf (StripParameter::knee);
constexpr auto kDriveOffset = IndexOf (StripParameter::driveOffset);
constexpr auto kMakeupAmount = IndexOf (StripParameter::makeupAmount);

std::int32_t ParameterOf (std::uint32_t column)
{
    return KeyPointSet::KeyPointParameter (0, column);
}

/// Texts of a storage, by the call that copies one.
template <typename Get>
std::string Taken (const Get& get)
{
    std::array<char, kTextSize> buffer{};
    get (buffer.data (), kTextSize - 1);
    return std::string (Trimmed (buffer.data ()));
}

} // namespace

Panel::Panel ()
{
    const auto records = ChannelStripRecords ();
    const auto program = ChannelStripProgram ();
    storage.Initialize (records.data (), &program, 1, kStripParameterCount);
}

std::string Panel::Name (std::uint32_t column) const
{
    const auto parameter = ParameterOf (column);
    if (parameter == kDriveOffset)
        return "Drive Offset";
    if (parameter == kMakeupAmount)
        return "Makeup Amount";
    return Taken ([&] (char* buffer, std::int32_t size) { storage.GetName (parameter, buffer, size); });
}

std::string Panel::Units (std::uint32_t column) const
{
    return Taken ([&] (char* buffer, std::int32_t size) { storage.GetUnits (ParameterOf (column), buffer, size); });
}

std::string Panel::Text (std::uint32_t column, std::int32_t step) const
{
    if (!HasStep (column, step))
        return "step " + std::to_string (step);
    return Taken ([&] (char* buffer, std::int32_t size)
                  { storage.PlainToText (ParameterOf (column), static_cast<float> (step), buffer, size); });
}

std::optional<std::int16_t> Panel::Step (std::uint32_t column, std::string_view text) const
{
    const auto parameter = ParameterOf (column);
    if (parameter == kKnee)
        return StepOfEntry (parameter, text);
    const auto first = Text (column, static_cast<std::int32_t> (storage.GetMinimum (parameter)));
    const auto last = Text (column, static_cast<std::int32_t> (storage.GetMaximum (parameter)));
    const auto units = Units (column);
    const auto step = parameter == kDriveOffset || parameter == kMakeupAmount
                          ? TypedLinearStep (text, 1.0, static_cast<double> (storage.GetMaximum (parameter)))
                          : TypedStep (parameter, text, { first, last, units });
    return step ? std::optional (static_cast<std::int16_t> (*step)) : std::nullopt;
}

std::optional<std::int16_t> Panel::StepOfEntry (std::int32_t parameter, std::string_view text) const
{
    for (std::int32_t entry = 0; entry < storage.GetListCount (parameter); ++entry)
    {
        const auto shown =
            Taken ([&] (char* buffer, std::int32_t size) { storage.GetListText (parameter, entry, buffer, size); });
        if (Lowered (text) == Lowered (shown) || text == std::to_string (entry))
            return static_cast<std::int16_t> (entry);
    }
    return std::nullopt;
}

std::string Panel::RangeText (std::uint32_t column) const
{
    const auto parameter = ParameterOf (column);
    if (parameter == kKnee)
        return Text (column, 0) + ", " + Text (column, 1) + " or " + Text (column, 2);
    const auto text = Text (column, static_cast<std::int32_t> (storage.GetMinimum (parameter))) + " to " +
                      Text (column, static_cast<std::int32_t> (storage.GetMaximum (parameter)));
    return Units (column).empty () ? text : text + " " + Units (column);
}

bool Panel::HasStep (std::uint32_t column, std::int32_t step) const
{
    const auto parameter = ParameterOf (column);
    return static_cast<float> (step) >= storage.GetMinimum (parameter) &&
           static_cast<float> (step) <= storage.GetMaximum (parameter);
}

std::int16_t Panel::StepOfNormalized (std::uint32_t column, float normalized) const
{
    return static_cast<std::int16_t> (storage.NormalizedToPlain (ParameterOf (column), normalized));
}

float Panel::NormalizedOfStep (std::uint32_t column, std::int32_t step) const
{
    return storage.PlainToNormalized (ParameterOf (column), static_cast<float> (step));
}

float Panel::MorphPosition (float normalized) const
{
    return storage.NormalizedToPlain (IndexOf (StripParameter::morph), normalized);
}

} // namespace tessaly::keypoints
