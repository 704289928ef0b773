#include "saved_state.h"

#include "fault.h"

#include "public.sdk/source/vst/utility/memoryibstream.h"

#include <algorithm>
#include <bit>
#include <string>
#include <string_view>

namespace tessaly::soak
{

using namespace Steinberg;

namespace
{

constexpr std::size_t kTreeAt = 4 + 4 * kStoredValues;
constexpr std::size_t kNameAt = 120;
constexpr std::size_t kKeyPointsAt = 376; // the first step of the set
constexpr std::size_t kKeyPointBytes = 10 * 17 * 2;
constexpr std::size_t kTreeValuesAt = 724; // all values again, those of later versions at their end
constexpr std::size_t kBypass = 21;

bool Holds (const StateBytes& state, std::size_t at, std::string_view letters)
{
    return std::equal (letters.begin (), letters.end (), state.begin () + static_cast<std::ptrdiff_t> (at));
}

/// Both copies of "Bypass" as the switch that it is.
StateBytes WithPlainBypass (StateBytes state)
{
    const bool on = StoredValues (state)[kBypass] >= 0.5F;
    std::fill_n (state.begin () + 4 + 4 * kBypass, 4, on);
    std::fill_n (state.begin () + kTreeValuesAt + 4 * kBypass, 4, on);
    return state;
}

void PutWildNumber (StateBytes& state, Chance& chance)
{
    static constexpr std::array<std::array<std::uint8_t, 4>, 6> kWild{ {
        { 0x7F, 0xC0, 0x00, 0x00 }, // not a number
        { 0x7F, 0x80, 0x00, 0x00 }, // infinity
        { 0xFF, 0x7F, 0xFF, 0xFF }, // the lowest float
        { 0x00, 0x00, 0x00, 0x01 }, // a denormal, or a size
        { 0x7F, 0xFF, 0xFF, 0xFF }, // the largest size
        { 0xFF, 0xFF, 0xFF, 0xFF },
    } };
    if (state.size () < 4)
        return;
    auto number = chance.Pick (kWild);
    if (chance.OneIn (2))
        std::reverse (number.begin (), number.end ());
    const std::size_t at = chance.Below (state.size () / 4) * 4;
    std::copy (number.begin (), number.end (), state.begin () + static_cast<std::ptrdiff_t> (at));
}

void ReplaceBytes (StateBytes& state, std::size_t at, std::size_t count, Chance& chance)
{
    for (std::size_t i = at; i < std::min (at + count, state.size ()); ++i)
        state[i] = static_cast<std::uint8_t> (chance.Below (256));
}

} // namespace

StateBytes Save (StripLife& life)
{
    ResizableMemoryIBStream stream;
    if (life.Component ().getState (&stream) != kResultOk)
        throw Fault ("the component gives no state");
    stream.rewind ();
    StateBytes state (kStateBytes + 1);
    int32 count = 0;
    stream.read (state.data (), static_cast<int32> (state.size ()), &count);
    state.resize (static_cast<std::size_t> (count));
    CheckReadable (state);
    return state;
}

void Load (StripLife& life, const StateBytes& state)
{
    ResizableMemoryIBStream stream (state.size ());
    if (!state.empty ())
        stream.write (const_cast<std::uint8_t*> (state.data ()), static_cast<int32> (state.size ()), nullptr);
    stream.rewind ();
    life.Component ().setState (&stream);
    stream.rewind ();
    life.Controller ().setComponentState (&stream);
}

std::array<float, kStoredValues> StoredValues (const StateBytes& state)
{
    std::array<float, kStoredValues> values{};
    for (std::size_t i = 0; i < values.size (); ++i)
    {
        std::uint32_t bits = 0;
        for (std::size_t byte = 4 + 4 * i; byte < 8 + 4 * i; ++byte)
            bits = bits << 8 | state[byte];
        values[i] = std::bit_cast<float> (bits);
    }
    return values;
}

void CheckReadable (const StateBytes& state)
{
    if (state.size () != kStateBytes)
        throw Fault ("a state has " + std::to_string (state.size ()) + " bytes");
    if (!Holds (state, 0, "2620") || !Holds (state, kTreeAt, "CHST"))
        throw Fault ("a state does not begin as states do");
    const auto values = StoredValues (state);
    for (std::size_t i = 0; i < values.size (); ++i)
        if (!(values[i] >= 0.0F && values[i] <= 1.0F))
            throw Fault ("a state holds " + std::to_string (values[i]) + " for parameter " + std::to_string (i));
}

void CheckRestored (const StateBytes& before, const StateBytes& after)
{
    const auto wanted = WithPlainBypass (before);
    const auto given = WithPlainBypass (after);
    const auto [first, ignored] = std::mismatch (wanted.begin (), wanted.end (), given.begin ());
    if (first != wanted.end ())
        throw Fault ("a state that was loaded comes back with another byte at " +
                     std::to_string (first - wanted.begin ()));
}

StateBytes WithAnotherSet (StateBytes state, Chance& chance)
{
    static constexpr std::array<std::string_view, 4> kNames{ "01 Basic", "a", "none", "gone" };
    const std::string_view name = chance.Pick (kNames);
    std::fill_n (state.begin () + kNameAt, kKeyPointsAt - kNameAt, std::uint8_t{ 0 });
    std::copy (name.begin (), name.end (), state.begin () + kNameAt);
    ReplaceBytes (state, kKeyPointsAt, kKeyPointBytes, chance);
    return state;
}

StateBytes Damaged (StateBytes state, Chance& chance)
{
    switch (chance.Below (6))
    {
    case 0:
        state.resize (chance.Below (state.size () + 1));
        break;
    case 1:
        state.resize (state.size () + chance.Below (2000), 0x50);
        break;
    case 2:
        ReplaceBytes (state, kKeyPointsAt, kKeyPointBytes, chance);
        break;
    case 3:
        ReplaceBytes (state, 0, state.size (), chance);
        break;
    default:
        for (std::size_t left = 1 + chance.Below (4); left > 0; --left)
            PutWildNumber (state, chance);
        break;
    }
    for (std::size_t left = chance.Below (4); left > 0 && !state.empty (); --left)
        ReplaceBytes (state, chance.Below (state.size ()), 1, chance);
    return state;
}

} // namespace tessaly::soak
