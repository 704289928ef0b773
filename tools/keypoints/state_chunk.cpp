#include "state_chunk.h"

#include "channel_strip_parameters.h"
#include "class_id.h"
#include "memory_stream.h"
#include "morph.h"
#include "set_error.h"
#include "set_file.h"
#include "state_file.h"
#include "stored_value.h"
#include "strip_state.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <exception>
#include <limits>

namespace tessaly::keypoints
{

namespace
{

// A state begins with four letters and the normalized values of the parameters, their highest byte first. The tree
// behind them holds the values again, and wins.
constexpr std::size_t kHeadLetters = 4;
constexpr std::size_t kHeadBytes = kHeadLetters + 4 * kStateHeadValues;

std::size_t ParameterOf (std::uint32_t column)
{
    return static_cast<std::size_t> (KeyPointSet::KeyPointParameter (0, column));
}

/// A number of a tree, its lowest byte first. @return -1 where the bytes end before
std::int64_t TreeNumber (std::span<const std::byte> bytes, std::size_t width)
{
    if (bytes.size () < width)
        return -1;
    std::uint64_t number = 0;
    for (std::size_t i = width; i-- > 0;)
        number = number << 8 | std::to_integer<std::uint64_t> (bytes[i]);
    return static_cast<std::int64_t> (number);
}

StripState ReadTree (std::span<const std::byte> chunk)
{
    if (chunk.size () < kHeadBytes)
        throw SetError ("the state ends within its parameters");
    std::vector<std::byte> tree (chunk.begin () + kHeadBytes, chunk.end ());
    const auto size = static_cast<std::int32_t> (tree.size ());
    ZMemoryStream stream (tree.data (), size, size);
    // What a fresh instance has, where the state leaves something out; and no numbers where it has no values.
    StripState state;
    state.keyPoints = builtInKeyPoints;
    state.values.fill (std::numeric_limits<float>::quiet_NaN ());
    try
    {
        ReadStripTree (stream, state);
    }
    catch (const std::exception& error)
    {
        throw SetError (std::string ("the state is damaged: ") + error.what ());
    }
    return state;
}

void PutHeadValues (const std::array<float, kStripParameterCount>& values, std::byte* out)
{
    for (const float value : std::span (values).first (kStateHeadValues))
        for (int shift = 24; shift >= 0; shift -= 8)
            *out++ = static_cast<std::byte> (std::bit_cast<std::uint32_t> (value) >> shift & 0xFF);
}

} // namespace

std::string StateDamage (std::span<const std::byte> chunk)
{
    if (chunk.size () < kHeadBytes)
        return "it ends within its parameters";
    const auto tree = chunk.subspan (kHeadBytes);
    const bool isWide = tree.size () >= 4 && TreeNumber (tree, 4) == 0; // ids and sizes of eight bytes
    const std::size_t width = isWide ? 8 : 4;
    if (tree.size () < 2 * width)
        return "it ends ahead of its key points";
    const auto size = TreeNumber (tree.subspan (width), width);
    const auto present = static_cast<std::int64_t> (tree.size () - 2 * width);
    if (size < 0 || size > present)
        return "it ends " + std::to_string (size - present) + " bytes early";
    try
    {
        ReadTree (chunk);
    }
    catch (const SetError& error)
    {
        return error.what ();
    }
    return {};
}

KeyPointRow CapturedRow (std::span<const std::byte> chunk, const Panel& panel)
{
    const auto state = ReadTree (chunk);
    KeyPointRow steps{};
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
    {
        const auto value = StoredValue (state.values[ParameterOf (column)]);
        if (!value)
            throw SetError ("the state holds no number for \"" + panel.Name (column) + "\"");
        steps[column] = panel.StepOfNormalized (column, *value);
    }
    return steps;
}

KeyPointRow CapturedRow (const std::filesystem::path& file, const Panel& panel)
{
    const auto chunk = host::ReadStateFile (file, VST3::UID::fromTUID (ProcessorClassId ().toTUID ()));
    if (const auto damage = StateDamage (chunk); !damage.empty ())
        throw SetError ("\"" + file.string () + "\" is damaged: " + damage);
    try
    {
        return CapturedRow (chunk, panel);
    }
    catch (const SetError& error)
    {
        throw SetError ("\"" + file.string () + "\": " + error.what ());
    }
}

std::vector<std::byte> WithKeyPoints (std::span<const std::byte> chunk, const std::string& name,
                                      const KeyPointSet& table, const Panel& panel)
{
    auto state = ReadTree (chunk);
    for (float& value : state.values)
        value = StoredValue (value).value_or (0.0F); // as the plug-in reads what is missing
    state.keyPointName = {};
    PutText (state.keyPointName.data (), CutAtCharacter (name, kTextSize - 1));
    std::copy_n (table.rows.begin (), kSetRows, state.keyPoints.rows.begin ());
    const float morph = StoredValue (state.values[IndexOf (StripParameter::morph)]).value_or (0.0F);
    if (const auto steps = MorphedSteps (state.keyPoints, panel.MorphPosition (morph)))
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            state.values[ParameterOf (column)] = panel.NormalizedOfStep (column, (*steps)[column]);

    std::vector<std::byte> changed (kHeadBytes + kStripTreeBytes);
    std::copy_n (chunk.begin (), kHeadLetters, changed.begin ());
    PutHeadValues (state.values, changed.data () + kHeadLetters);
    ZMemoryStream stream (changed.data () + kHeadBytes, kStripTreeBytes);
    WriteStripTree (stream, state);
    return changed;
}

} // namespace tessaly::keypoints
