#include "report.h"

#include "parameter_names.h"
#include "text.h"
#include "typed_value.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>

namespace tessaly::render
{

namespace
{

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

std::string LoudnessText (const Loudness& loudness)
{
    if (loudness.IsSilent ())
        return "loudness: silent";
    return "loudness " + ToText (loudness.integratedLufs, 1) + " LUFS, range " + ToText (loudness.rangeLu, 1) +
           " LU, true peak " + ToText (loudness.truePeakDbtp, 2) + " dBTP";
}

void PrintSummary (std::ostream& out, const Summary& summary)
{
    const auto& result = summary.result;
    const bool clipped = summary.clips && result.output.PeakDb () > 0.0;
    constexpr double kMeterEndDb = 24.0;
    const bool beyondMeter = result.largestGainReductionDb > kMeterEndDb - 1e-6;

    out << "Input:   " << summary.input.string () << '\n'
        << "         " << summary.channels << (summary.channels == 1 ? " channel, " : " channels, ")
        << summary.sampleRateHz << " Hz, " << Duration (summary.inputFrames, summary.sampleRateHz) << '\n'
        << "         " << Levels (result.input) << '\n';
    if (summary.inputLoudness)
        out << "         " << LoudnessText (*summary.inputLoudness) << '\n';
    out << "Output:  " << summary.output.string () << '\n'
        << "         " << summary.format << ", " << Duration (result.frames, summary.sampleRateHz) << '\n'
        << "         " << Levels (result.output) << (clipped ? " (clipped in the file)" : "") << '\n';
    if (summary.outputLoudness)
        out << "         " << LoudnessText (*summary.outputLoudness) << '\n';
    if (summary.matchGainDb)
        out << "         matched by a gain of " << ToText (*summary.matchGainDb, 2) << " dB\n";
    out << "Largest gain reduction: " << ToText (result.largestGainReductionDb, 1) << " dB"
        << (beyondMeter ? " or more" : "") << '\n';
}

void PrintPlan (std::ostream& out, const Summary& summary)
{
    out << "would write " << summary.output.string () << ": " << summary.format << '\n';
}

} // namespace tessaly::render
