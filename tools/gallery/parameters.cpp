#include "parameters.h"

#include "number_text.h"
#include "text.h"
#include "value_conversions.h"
#include <array>

namespace tessaly::gallery
{

namespace
{

// Conversions of the continuous parameters

void PercentText (float plain, char* buffer)
{
    PutText (buffer, FixedText (plain, 0, 0) + " %");
}

void DecibelText (float plain, char* buffer)
{
    PutText (buffer, FixedText (plain, 0, 1) + " dB");
}

void MillisecondText (float plain, char* buffer)
{
    PutText (buffer, FixedText (plain, 0, 1) + " ms");
}

void DigitText (float plain, char* buffer) // as wide as its place, which a display of digits likes
{
    PutText (buffer, FixedText (plain, 6, 2));
}

constexpr ZConverterSet kPlain{ TextWithoutUnit, linearToPlain, linearToNormalized };
constexpr ZConverterSet kPercent{ PercentText, linearToPlain, linearToNormalized };
constexpr ZConverterSet kDecibel{ DecibelText, linearToPlain, linearToNormalized };
constexpr ZConverterSet kMilliseconds{ MillisecondText, linearToPlain, linearToNormalized };
constexpr ZConverterSet kDigits{ DigitText, linearToPlain, linearToNormalized };

constexpr const char* kShapes[]{ "Flat", "Sine", "Triangle", "Square", "Saw", nullptr };
constexpr const char* kSwitch[]{ "Off", "On", nullptr };
constexpr const char* kPolarities[]{ "Normal", "Inverted", nullptr };
constexpr const char* kSlopes[]{ "6 dB", "12 dB", "18 dB", "24 dB", nullptr };
constexpr const char* kBands[]{ "Low", "Mid", "High", nullptr };
constexpr const char* kNotes[]{ "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B", nullptr };

struct Row
{
    const char* name;
    std::int32_t type;
    float minimum;
    float maximum;
    const ZConverterSet* converters;
    const char* const* listTexts;
    float initial; // plain
};

// clang-format off
constexpr std::array<Row, kParameterCount> kRows { {
    { "Gain",     kContinuous, -24.0f,  24.0f, &kDecibel,      nullptr,     0.0f },
    { "Pan",      kContinuous, -10.0f,  10.0f, &kPlain,        nullptr,     0.0f },
    { "Shape",    kList,         0.0f,   4.0f, nullptr,        kShapes,     1.0f },
    { "Polarity", kBool,         0.0f,   1.0f, nullptr,        kPolarities, 0.0f },
    { "Level",    kContinuous,   0.0f, 100.0f, &kPercent,      nullptr,    60.0f },
    { "Depth",    kContinuous,   0.0f, 100.0f, &kPercent,      nullptr,    20.0f },
    { "Blend",    kContinuous,   0.0f, 100.0f, &kPercent,      nullptr,    40.0f },
    { "Slope",    kList,         0.0f,   3.0f, nullptr,        kSlopes,     1.0f },
    { "Tap",      kBool,         0.0f,   1.0f, nullptr,        kSwitch,     0.0f },
    { "Stamp",    kBool,         0.0f,   1.0f, nullptr,        kSwitch,     0.0f },
    { "Pad",      kBool,         0.0f,   1.0f, nullptr,        kSwitch,     0.0f },
    { "Latch2",   kBool,         0.0f,   1.0f, nullptr,        kSwitch,     0.0f },
    { "Latch3",   kBool,         0.0f,   1.0f, nullptr,        kSwitch,     1.0f },
    { "Latch4",   kBool,         0.0f,   1.0f, nullptr,        kSwitch,     0.0f },
    { "Band",     kList,         0.0f,   2.0f, nullptr,        kBands,      0.0f },
    { "Pitch",    kContinuous, -48.0f,  48.0f, &kPlain,        nullptr,    12.5f },
    { "Time",     kContinuous,   0.0f, 500.0f, &kMilliseconds, nullptr,   120.0f },
    { "Ratio",    kContinuous,   1.0f,  20.0f, &kDigits,       nullptr,     4.0f },
    { "Note",     kList,         0.0f,  11.0f, nullptr,        kNotes,      9.0f },
    { "Wave",     kList,         0.0f,   4.0f, nullptr,        kShapes,     2.0f },
    { "Power",    kBool,         0.0f,   1.0f, nullptr,        kSwitch,     1.0f },
} };
// clang-format on

ZParameterRecord RecordOf (const Row& row)
{
    ZParameterRecord record;
    record.type = row.type;
    record.minimum = row.minimum;
    record.maximum = row.maximum;
    record.name = row.name;
    record.converters = row.converters;
    record.listTexts = row.listTexts;
    return record;
}

} // namespace

void FillParameters (ZParameterStorageBase& storage)
{
    storage.Allocate (1, kParameterCount);
    for (std::int32_t index = 0; index < kParameterCount; ++index)
    {
        const auto& row = kRows[static_cast<std::size_t> (index)];
        storage.SetParameterRecord (index, RecordOf (row));
        storage.SetPlain (index, row.initial);
        storage.SetDefaultPlain (index, row.initial);
    }
}

void TextWithoutUnit (float plain, char* buffer)
{
    PutText (buffer, FixedText (plain, 0, 1));
}

std::int32_t FindParameter (const ZParameterStorageBase& storage, std::string_view name)
{
    for (std::int32_t index = 0; index < storage.GetParameterCount (); ++index)
        if (Lowered (NameOf (storage, index)) == Lowered (name))
            return index;
    return -1;
}

std::string NameOf (const ZParameterStorageBase& storage, std::int32_t index)
{
    ZText text{};
    storage.GetName (index, text.data (), kTextSize - 1);
    return text.data ();
}

std::string ValueTextOf (const ZParameterStorageBase& storage, std::int32_t index)
{
    ZText text{};
    storage.GetValueText (index, text.data (), kTextSize - 1);
    return text.data ();
}

} // namespace tessaly::gallery
