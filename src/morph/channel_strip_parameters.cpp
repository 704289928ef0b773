#include "channel_strip_parameters.h"

#include "step_ranges.h"
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
    const ZConverterSet* converters;
    const char* const* listTexts = nullptr;
    std::int32_t flags = 0;
};

namespace sets = converters;

// clang-format off
const std::array<Row, kStripParameterCount> kRows { {
    { "Drive",             "",   kContinuous, &sets::drive },
    { "Attack",            "ms", kContinuous, &sets::attack },
    { "Release",           "ms", kContinuous, &sets::release },
    { "Ratio",             "",   kContinuous, &sets::ratio },
    { "Knee",              "",   kList,       &sets::plain, kKneeTexts },
    { "",                  "",   kContinuous, &sets::driveOffset },
    { "",                  "",   kContinuous, &sets::makeup },
    { "Side Chain F",      "Hz", kContinuous, &sets::frequency },
    { "Side Chain G",      "dB", kContinuous, &sets::gain },
    { "Side Chain Q",      "",   kContinuous, &sets::q },
    { "High F",            "Hz", kContinuous, &sets::frequency },
    { "High G",            "dB", kContinuous, &sets::gain },
    { "Mid F",             "Hz", kContinuous, &sets::frequency },
    { "Mid G",             "dB", kContinuous, &sets::gain },
    { "Mid Q",             "",   kContinuous, &sets::q },
    { "Low F",             "Hz", kContinuous, &sets::frequency },
    { "Low G",             "dB", kContinuous, &sets::gain },
    { "Total Gain",        "dB", kContinuous, &sets::gain },
    { "Equalizer Bypass",  "",   kBool,       &sets::plain, kSwitchTexts },
    { "Compressor Bypass", "",   kBool,       &sets::plain, kSwitchTexts },
    { "Morph",             "",   kContinuous, &sets::morph },
    { "Bypass",            "",   kBool,       &sets::plain, kSwitchTexts, kIsBypass },
} };
// clang-format on

ZParameterRecord Record (const Row& row, const StepRange& steps)
{
    ZParameterRecord record;
    record.type = row.type;
    record.minimum = static_cast<float> (steps.first);
    record.maximum = static_cast<float> (steps.last);
    record.step = row.type == kBool ? 0.0f : 1.0f / (record.maximum - record.minimum);
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
        records[i] = Record (kRows[i], kStepRanges[i]);
    return records;
}

ZProgramRecord ChannelStripProgram ()
{
    static const auto steps = []
    {
        std::array<float, kStripParameterCount> init{};
        for (std::size_t i = 0; i < init.size (); ++i)
            init[i] = static_cast<float> (kStepRanges[i].init);
        return init;
    }();
    return { "Init1", steps.data () };
}

} // namespace tessaly
