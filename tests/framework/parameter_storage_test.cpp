#include "list_steps.h"
#include "parameter_storage_base.h"
#include <array>
#include <doctest/doctest.h>
#include <limits>
#include <string>
#include <utility>

using namespace tessaly;

namespace
{

enum
{
    kBare,
    kThree,
    kSwitch,
    kScaled
};

const ZConverterSet kLinear{ [] (float plain, char* buffer) { PutText (buffer, plain == 8.0f ? "eight" : ""); },
                             [] (float normalized, float low, float high) { return low + normalized * (high - low); },
                             [] (float plain, float low, float high) { return (plain - low) / (high - low); } };
constexpr const char* kColours[]{ "red", "green", "blue", nullptr };
constexpr const char* kOffOn[]{ "Off", "On", nullptr };

/// Two programs of a parameter without converters, a list, a switch, and one from 2 to 6.
struct Filled
{
    Filled ()
    {
        const std::array<ZParameterRecord, 4> parameters{ {
            { kContinuous, 0, 1, 0, "Bare", "" },
            { kList, 5, 9, 0.7f, "Three", "", nullptr, kColours },
            { kBool, 0, 1, 0, "Switch", "", nullptr, kOffOn },
            { kContinuous, 2, 6, 0.25f, "Scaled", "kg", &kLinear },
        } };
        const std::array<float, 4> first{ 0.5f, 1, 1, 4 };
        const std::array<float, 4> second{ 3.5f, 2, 0, 6 };
        const std::array<ZProgramRecord, 2> programs{ { { "First", first.data () }, { "Second", second.data () } } };
        storage.Initialize (parameters.data (), programs.data (), 2, 4);
    }

    ZParameterStorageBase storage;
};

} // namespace

TEST_CASE ("NormalizedToInt and IntToNormalized: every entry of a list of any length is read back as it was written")
{
    for (std::int32_t count = 2; count <= 300; ++count)
        for (std::int32_t entry = 0; entry < count; ++entry)
        {
            const float step = 1.0f / static_cast<float> (count);
            REQUIRE (NormalizedToInt (IntToNormalized (entry, step), step) == entry);
        }

    const float third = 1.0f / 3.0f;
    CHECK (NormalizedToInt (0.66f, third) == 1);
    CHECK (IntToNormalized (7, third) == 1.0f);
    for (const float none : { -1.0f, std::numeric_limits<float>::quiet_NaN () })
        CHECK (NormalizedToInt (none, third) == 0);
    for (const float step : { 0.0f, -1.0f, 1.0f })
        CHECK ((NormalizedToInt (0.9f, step) == 0 && IntToNormalized (1, step) == 0.0f));
}

TEST_CASE_FIXTURE (Filled, "ZParameterStorageBase: each program holds its own values, the first one is chosen")
{
    CHECK (storage.ValuesEqual ({ 0.5f, 0.5f, 1.0f, 0.5f }));
    CHECK (storage.DefaultsEqual ({ 0.5f, 0.5f, 1.0f, 0.5f }));
    storage.SetCurrentProgram (1);
    storage.SetCurrentProgram (2); // there is none
    for (const auto bad : { -1, 4 })
    {
        storage.SetPlain (bad, 0.9f);
        CHECK (storage.GetPlain (bad) == 0.0f);
    }
    CHECK (storage.ValuesEqual ({ 3.5f, 1.0f, 0.0f, 1.0f })); // no converters: stored as it is, beyond 1 too
}

TEST_CASE_FIXTURE (Filled, "ZParameterStorageBase: a value takes the form and the text of its parameter's type")
{
    using Stored = std::pair<float, std::string>;
    const auto stored = [this] (std::int32_t index, float plain)
    {
        std::array<char, kTextSize> text{};
        storage.PlainToText (index, plain, text.data (), kTextSize - 1);
        storage.SetPlain (index, plain);
        return Stored (storage.GetNormalized (index), text.data ());
    };
    CHECK (stored (kBare, 4.0f) == Stored{ 4.0f, "" });
    CHECK (stored (kThree, 1.9f) == Stored{ 0.5f, "green" });
    CHECK (stored (kThree, 3.0f) == Stored{ 1.0f, "" });
    CHECK (stored (kSwitch, 0.9f) == Stored{ 0.0f, "Off" });
    CHECK (stored (kSwitch, -3.0f) == Stored{ 1.0f, "On" });
    CHECK (stored (kScaled, 8.0f) == Stored{ 1.5f, "eight" });
    CHECK (storage.GetPlain (kScaled) == 8.0f);
    CHECK (storage.GetMaximum (kThree) == 2.0f); // of its texts, whatever the record says

    float value = -1.0f;
    CHECK (storage.TextToNormalized (kScaled, "3.0", &value));
    CHECK (value == 0.25f);
    CHECK_FALSE (storage.TextToNormalized (kScaled, "4 kg", &value)); // something is left over
    CHECK (value == 0.5f);
}

TEST_CASE_FIXTURE (Filled, "ZParameterStorageBase: a text is cut to its buffer of size + 1 bytes, the rest zeroed")
{
    std::array<char, 8> buffer;
    buffer.fill ('x');
    storage.GetName (kScaled, buffer.data (), 3);
    CHECK (buffer == std::array<char, 8>{ 'S', 'c', 'a', 0, 'x', 'x', 'x', 'x' });
    storage.GetUnits (kScaled, buffer.data (), 6);
    storage.GetName (kScaled, buffer.data (), 0); // no room: nothing
    storage.GetName (kScaled, nullptr, 5);
    CHECK (buffer == std::array<char, 8>{ 'k', 'g', 0, 0, 0, 0, 0, 'x' });
}

TEST_CASE_FIXTURE (Filled, "ZParameterStorageBase: steps by entries, to an end of a switch, or by the parameter's step")
{
    CHECK (storage.StepNormalized (kThree, 0.0f, 1, 1.0f) == 0.5f);
    CHECK (storage.StepNormalized (kThree, 0.5f, 2147483647, 4.0f) == 1.0f);
    CHECK (storage.StepNormalized (kSwitch, 0.0f, 3, 1.0f) == 1.0f);
    CHECK (storage.StepNormalized (kSwitch, 0.6f, 0, 1.0f) == 0.6f);
    CHECK (storage.StepNormalized (kScaled, 0.5f, -1, 0.5f) == 0.375f);
}
