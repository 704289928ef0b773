#include "channel_strip_parameters.h"

#include "value_text.h"

namespace tessaly
{

namespace
{

constexpr const char* kKneeTexts[]{ "Soft", "Middle", "Hard", nullptr };
constexpr const char* kSwitchTexts[]{ "Off", "On", nullptr };

struct Row
{
    const char* name;
    const char* units;
    std::int32_t type;
    float minimum; // step
    float maximum; // step
    const ZConverterSet* converters;
    float init; // step
    const char* const* listTexts = nullptr;
    std::int32_t flags = 0;
};

namespace sets = converters;

// clang-format off
const std::array<Row, kStripParameterCount> kRows { {
    { "Drive",             "",   kContinuous,  0, 200, &sets::drive,       100 },
    { "Attack",            "ms", kContinuous, 57, 283, &sets::attack,      221 },
    { "Release",           "ms", kContinuous, 24, 300, &sets::release,     164 },
    { "Ratio",             "",   kContinuous,  0, 120, &sets::ratio,       120 },
    { "Knee",              "",   kList,        0,   2, &sets::plain,         1, kKneeTexts },
    { "",                  "",   kContinuous,  0, 200, &sets::driveOffset, 100 },
    { "",                  "",   kContinuous,  0, 200, &sets::makeup,      100 },
    { "Side Chain F",      "Hz", kContinuous,  4, 124, &sets::frequency,    60 },
    { "Side Chain G",      "dB", kContinuous,  0, 360, &sets::gain,        180 },
    { "Side Chain Q",      "",   kContinuous,  0,  60, &sets::q,            20 },
    { "High F",            "Hz", kContinuous, 60, 124, &sets::frequency,   112 },
    { "High G",            "dB", kContinuous,  0, 360, &sets::gain,        180 },
    { "Mid F",             "Hz", kContinuous,  4, 124, &sets::frequency,    84 },
    { "Mid G",             "dB", kContinuous,  0, 360, &sets::gain,        180 },
    { "Mid Q",             "",   kContinuous,  0,  60, &sets::q,            20 },
    { "Low F",             "Hz", kContinuous,  4,  72, &sets::frequency,    32 },
    { "Low G",             "dB", kContinuous,  0, 360, &sets::gain,        180 },
    { "Total Gain",        "dB", kContinuous,  0, 360, &sets::gain,        180 },
    { "Equalizer Bypass",  "",   kBool,        0,   1, &sets::plain,         0, kSwitchTexts },
    { "Compressor Bypass", "",   kBool,        0,   1, &sets::plain,         0, kSwitchTexts },
    { "Morph",             "",   kContinuous,  0, 120, &sets::morph,         0 },
    { "Bypass",            "",   kBool,        0,   1, &sets::plain,         0, kSwitchTexts, kIsBypass },
} };
// clang-format on

ZParameterRecord Record (const Row& row)
{
    ZParameterRecord record;
    record.type = row.type;
    record.minimum = row.minimum;
    record.maximum = row.maximum;
    record.step = row.type == kBool ? 0.0f : 1.0f / (row.maximum - row.minimum);
    record.name = row.name;
    record.units = row.units;
    record.converters = row.converters;
    record.listTexts = row.listTexts;
    record.flags = row.flags;
    return record;
}

} // namespace

std::array<ZParameterRecord, kStripParameterCount> ChannelStripRecords ()
{
    std::array<ZParameterRecord, kStripParameterCount> records;
    for (std::size_t i = 0; i < records.size (); ++i)
        records[i] = Record (kRows[i]);
    return records;
}

ZProgramRecord ChannelStripProgram ()
{
    static const auto steps = []
    {
        std::array<float, kStripParameterCount> init{};
        for (std::size_t i = 0; i < init.size (); ++i)
            init[i] = kRows[i].init;
        return init;
    }();
    return { "Init1", steps.data () };
}

} // namespace tessaly
