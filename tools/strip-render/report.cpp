#include "report.h"

#include "parameter_names.h"
#include "text.h"
#include "typed_value.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <nlohmann/json.hpp>

namespace tessaly::render
{

namespace
{

using Json = nlohmann::ordered_json;

void Print (std::ostream& out, const Json& json)
{
    out << json.dump (2, ' ', false, Json::error_handler_t::replace) << '\n'; // a file's name may hold any bytes
}

using Row = std::array<std::string, 5>;

/// Left-aligned columns, as wide as their widest cell, two blanks between.
void PrintTable (std::ostream& out, const std::vector<Row>& rows)
{
    std::array<std::size_t, std::tuple_size_v<Row>> widths{};
    for (const Row& row : rows)
        for (std::size_t i = 0; i < row.size (); ++i)
            widths[i] = std::max (widths[i], row[i].size ());
    for (const Row& row : rows)
    {
        std::string line;
        for (std::size_t i = 0; i < row.size (); ++i)
            line += row[i] + std::string (widths[i] - row[i].size () + 2, ' ');
        out << line.substr (0, line.find_last_not_of (' ') + 1) << '\n';
    }
}

std::string Duration (std::int64_t frames, int sampleRateHz)
{
    return ToText (static_cast<double> (frames) / sampleRateHz, 3) + " s";
}

std::string Levels (const LevelMeter& meter)
{
    return "peak " + LevelText (meter.PeakDb ()) + ", RMS " + LevelText (meter.RmsDb ());
}

} // namespace

void PrintParameters (std::ostream& out, const host::ParameterAccess& parameters)
{
    std::vector<Row> rows{ { "Name", "Range", "Unit", "Default", "Present" } };
    const ParameterNames names (parameters);
    for (const auto& [name, info] : names.Entries ())
        rows.push_back ({ name, RangeText (parameters, info), info.units,
                          ValueText (parameters, info, info.defaultNormalized),
                          ValueText (parameters, info, parameters.Normalized (info.id)) });
    for (const auto& info : parameters.List ())
        if (info.IsReadOnly ())
            rows.push_back ({ info.title, "meter, read only", info.units,
                              ValueText (parameters, info, info.defaultNormalized),
                              ValueText (parameters, info, parameters.Normalized (info.id)) });
    PrintTable (out, rows);
}

void PrintParametersAsJson (std::ostream& out, const host::ParameterAccess& parameters)
{
    Json list = Json::array ();
    const ParameterNames names (parameters);
    for (const auto& [name, info] : names.Entries ())
        list.push_back ({ { "name", name },
                          { "id", info.id },
                          { "range", RangeText (parameters, info) },
                          { "unit", info.units },
                          { "default", ValueText (parameters, info, info.defaultNormalized) },
                          { "present", ValueText (parameters, info, parameters.Normalized (info.id)) } });
    Print (out, list);
}

namespace
{

Json LevelsAsJson (const std::filesystem::path& file, const LevelMeter& meter, std::int64_t frames, int rateHz)
{
    const auto level = [] (double db) { return std::isfinite (db) ? Json (db) : Json (nullptr); };
    return { { "file", file.string () },
             { "frames", frames },
             { "seconds", static_cast<double> (frames) / rateHz },
             { "peakDbfs", level (meter.PeakDb ()) },
             { "rmsDbfs", level (meter.RmsDb ()) } };
}

void PrintSummaryAsJson (std::ostream& out, const Summary& summary)
{
    const auto& result = summary.result;
    const int rateHz = summary.reader.SampleRateHz ();
    Json json{ { "channels", summary.reader.Channels () },
               { "sampleRateHz", rateHz },
               { "input", LevelsAsJson (summary.input, result.input, summary.reader.FramesRead (), rateHz) },
               { "output", LevelsAsJson (summary.output, result.output, result.frames, rateHz) },
               { "largestGainReductionDb", result.largestGainReductionDb } };
    json["output"]["format"] = summary.format.description;
    Print (out, json);
}

} // namespace

void PrintSummary (std::ostream& out, const Summary& summary, bool asJson)
{
    if (asJson)
    {
        PrintSummaryAsJson (out, summary);
        return;
    }
    const auto& [input, output, reader, format, result] = summary;
    const int rateHz = reader.SampleRateHz ();
    const int channels = reader.Channels ();
    const bool clipped = format.integerBits != 0 && result.output.PeakDb () > 0.0;
    constexpr double kMeterEndDb = 24.0;
    const bool beyondMeter = result.largestGainReductionDb > kMeterEndDb - 1e-6;

    out << "Input:   " << input.string () << '\n'
        << "         " << channels << (channels == 1 ? " channel, " : " channels, ") << rateHz << " Hz, "
        << Duration (reader.FramesRead (), rateHz) << '\n'
        << "         " << Levels (result.input) << '\n'
        << "Output:  " << output.string () << '\n'
        << "         " << format.description << ", " << Duration (result.frames, rateHz) << '\n'
        << "         " << Levels (result.output) << (clipped ? " (clipped in the file)" : "") << '\n'
        << "Largest gain reduction: " << ToText (result.largestGainReductionDb, 1) << " dB"
        << (beyondMeter ? " or more" : "") << '\n';
}

} // namespace tessaly::render
