#include "german_locale.h"
#include "list_steps.h"
#include "parameter_storage_base.h"
#include <array>
#include <doctest/doctest.h>
#include <limits>
#include <string>

using namespace tessaly;

namespace
{

enum
{
    kBare,
    kThree,
    kSwitch,
    kHalved
};

void HalvedToText (float plain, char* buffer)
{
    PutText (buffer, plain == 4.0f ? "four" : "other");
}

float HalvedToPlain (float normalized, float minimum, float maximum)
{
    return minimum + normalized * (maximum - minimum);
}

float HalvedToNormalized (float plain, float minimum, float maximum)
{
    return (plain - minimum) / (maximum - minimum);
}

const ZConverterSet kHalvedSet{ HalvedToText, HalvedToPlain, HalvedToNormalized };
constexpr const char* kColours[]{ "red", "green", "blue", nullptr };
constexpr const char* kOffOn[]{ "Off", "On", nullptr };

/// Two programs of a parameter without converters, a list, a switch, and one from 2 to 6.
ZParameterStorageBase& Filled (ZParameterStorageBase& storage)
{
    const std::array<ZParameterRecord, 4> parameters{ {
        { kContinuous, 0, 1, 0, "Bare", "" },
        { kList, 5, 9, 0.7f, "Three", "", nullptr, kColours },
        { kBool, 0, 1, 0, "Switch", "", nullptr, kOffOn, kIsBypass },
        { kContinuous, 2, 6, 0.25f, "Halved", "kg", &kHalvedSet, nullptr, kNotAutomatable, 3 },
    } };
    const std::array<float, 4> first{ 0.5f, 1, 1, 4 };
    const std::array<float, 4> second{ 3.5f, 2, 0, 6 };
    const std::array<ZProgramRecord, 2> programs{ { { "First", first.data () }, { "Second", second.data () } } };
    storage.Initialize (parameters.data (), programs.data (), 2, 4);
    return storage;
}

template <typename Write>
std::string Written (Write write)
{
    std::array<char, kTextSize + 1> buffer{};
    write (buffer.data ());
    return buffer.data ();
}

} // namespace

TEST_CASE ("NormalizedToInt and IntToNormalized: a list of three divides into thirds and is written at the ends")
{
    const float third = 1.0f / 3.0f;
    CHECK (NormalizedToInt (0.5f, third) == 1);
    CHECK (IntToNormalized (1, third) == 0.5f);
    CHECK (IntToNormalized (7, third) == 1.0f);
    CHECK (NormalizedToInt (-1.0f, third) == 0);
    CHECK (NormalizedToInt (std::numeric_limits<float>::quiet_NaN (), third) == 0);
    for (const float step : { 0.0f, -1.0f, 1.0f })
        CHECK ((NormalizedToInt (0.9f, step) == 0 && IntToNormalized (1, step) == 0.0f));

    // and what was written is read back, whatever the length of the list
    for (std::int32_t count = 2; count <= 300; ++count)
        for (std::int32_t entry = 0; entry < count; ++entry)
        {
            const float step = 1.0f / static_cast<float> (count);
            REQUIRE (NormalizedToInt (IntToNormalized (entry, step), step) == entry);
        }
}

TEST_CASE ("ZParameterStorageBase: is filled with program 0 chosen, values and defaults alike")
{
    ZParameterStorageBase storage;
    Filled (storage);
    CHECK (storage.GetValuesRef () == std::vector<float>{ 0.5f, 0.5f, 1.0f, 0.5f });
    storage.SetCurrentProgram (1);
    CHECK (storage.ValuesEqual ({ 3.5f, 1.0f, 0.0f, 1.0f })); // no converters: stored as it is, beyond 1 too
    storage.SetCurrentProgram (2);
    CHECK (storage.GetCurrentProgram () == 1);

    CHECK (storage.GetMaximum (kThree) == 2.0f);
    CHECK (storage.GetStep (kThree) == 1.0f / 3.0f);
    CHECK (storage.GetStep (kBare) == 0.01f);
}

TEST_CASE ("ZParameterStorageBase: converts between the forms of a value by the parameter's type")
{
    ZParameterStorageBase storage;
    Filled (storage);
    storage.SetNormalized (kSwitch, 0.5f);
    CHECK (storage.GetPlain (kSwitch) == 1.0f);
    storage.SetPlain (kSwitch, 0.9f); // truncated, so off
    CHECK (storage.GetNormalized (kSwitch) == 0.0f);
    storage.SetPlain (kThree, 1.9f);
    CHECK (storage.GetInt (kThree) == 1);
    storage.SetPlain (kHalved, 3.0f);
    CHECK (storage.GetNormalized (kHalved) == 0.25f);
    CHECK (storage.GetDefaultPlain (kHalved) == 4.0f);
    storage.SetNormalized (kHalved, 1.5f); // nothing is clamped
    CHECK (storage.GetPlain (kHalved) == 8.0f);
}

TEST_CASE ("ZParameterStorageBase: a bad index does nothing and reads as stated")
{
    ZParameterStorageBase storage;
    Filled (storage);
    for (const auto bad : { -1, 4 })
    {
        storage.SetNormalized (bad, 0.9f);
        storage.SetListTexts (bad, kColours);
        CHECK (storage.GetNormalized (bad) == 0.0f);
        CHECK (storage.NormalizedToPlain (bad, 0.3f) == 0.3f);
        CHECK (storage.StepNormalized (bad, 0.3f, 5, 1.0f) == 0.3f);
        CHECK (Written ([&] (char* text) { storage.PlainToText (bad, 1.0f, text, 255); }).empty ());
    }
}

TEST_CASE ("ZParameterStorageBase: a text is cut to its buffer of size + 1 bytes, the rest zeroed")
{
    ZParameterStorageBase storage;
    Filled (storage);
    std::array<char, 8> buffer;
    buffer.fill ('x');
    storage.GetName (kHalved, buffer.data (), 3);
    CHECK (std::string (buffer.data ()) == "Hal");
    CHECK (buffer[4] == 'x');
    storage.GetUnits (kHalved, buffer.data (), 6);
    CHECK (buffer == std::array<char, 8>{ 'k', 'g', 0, 0, 0, 0, 0, 'x' });
    storage.GetName (kHalved, buffer.data (), 0);
    storage.GetName (kHalved, nullptr, 5);
    CHECK (buffer[0] == 'k');

    storage.SetName (kBare, std::string (300, 'n').c_str ());
    CHECK (Written ([&] (char* text) { storage.GetName (kBare, text, 256); }) == std::string (255, 'n'));
}

TEST_CASE ("ZParameterStorageBase: shows entries of lists and switches and asks the converters otherwise")
{
    ZParameterStorageBase storage;
    Filled (storage);
    auto text = [&storage] (std::int32_t index, float plain)
    { return Written ([&] (char* out) { storage.PlainToText (index, plain, out, 255); }); };
    CHECK (text (kThree, 2.0f) == "blue");
    CHECK (text (kThree, 3.0f).empty ());
    CHECK (text (kSwitch, 0.9f) == "Off");
    CHECK (text (kSwitch, -3.0f) == "On");
    CHECK (text (kBare, 4.0f).empty ());
}

TEST_CASE ("ZParameterStorageBase: reads a text as a number under any locale, and says when something is left over")
{
    ZParameterStorageBase storage;
    Filled (storage);
    const test::GermanLocale comma;
    float value = -1.0f;
    CHECK (storage.TextToPlain (kHalved, "3.5", &value));
    CHECK (value == 3.5f);
    CHECK_FALSE (storage.TextToNormalized (kHalved, "4 kg", &value));
    CHECK (value == 0.5f);
    CHECK_FALSE (storage.TextToNormalized (kHalved, nullptr, &value));
    CHECK (value == 0.5f);
}

TEST_CASE ("ZParameterStorageBase: steps by entries, to an end of a switch, or by the parameter's own step")
{
    ZParameterStorageBase storage;
    Filled (storage);
    CHECK (storage.StepNormalized (kThree, 0.0f, 1, 1.0f) == 0.5f);
    CHECK (storage.StepNormalized (kThree, 0.5f, 2147483647, 4.0f) == 1.0f);
    CHECK (storage.StepNormalized (kSwitch, 0.0f, 3, 1.0f) == 1.0f);
    CHECK (storage.StepNormalized (kSwitch, 0.6f, 0, 1.0f) == 0.6f);
    CHECK (storage.StepNormalized (kHalved, 0.5f, -1, 0.5f) == 0.375f);
    CHECK (storage.StepNormalized (kBare, 0.5f, 1, 1.0f) == doctest::Approx (0.51));
}
