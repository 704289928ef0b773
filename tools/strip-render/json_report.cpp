#include "json_report.h"

#include "parameter_names.h"
#include "typed_value.h"

#include <cmath>
#include <ostream>

namespace tessaly::render
{

namespace
{

Json Level (double db)
{
    return std::isfinite (db) ? Json (db) : Json (nullptr);
}

void AddLength (Json& json, std::int64_t frames, int rateHz)
{
    json["frames"] = frames;
    json["seconds"] = static_cast<double> (frames) / rateHz;
}

void AddLevels (Json& json, const LevelMeter& meter, const std::optional<Loudness>& loudness)
{
    json["peakDbfs"] = Level (meter.PeakDb ());
    json["rmsDbfs"] = Level (meter.RmsDb ());
    if (!loudness)
        return;
    json["integratedLufs"] = Level (loudness->integratedLufs);
    json["rangeLu"] = loudness->rangeLu;
    json["truePeakDbtp"] = Level (loudness->truePeakDbtp);
}

} // namespace

void Print (std::ostream& out, const Json& json)
{
    out << json.dump (2, ' ', false, Json::error_handler_t::replace) << '\n';
}

Json ToJson (const host::ParameterAccess& parameters)
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
    return list;
}

Json ToJson (const Summary& summary, bool dryRun)
{
    Json json{ { "channels", summary.channels }, { "sampleRateHz", summary.sampleRateHz } };
    Json& input = json["input"];
    Json& output = json["output"];
    input["file"] = summary.input.string ();
    AddLength (input, summary.inputFrames, summary.sampleRateHz);
    output["file"] = summary.output.string ();
    output["format"] = summary.format;
    if (dryRun)
        return json;
    const auto& result = summary.result;
    AddLevels (input, result.input, summary.inputLoudness);
    AddLength (output, result.frames, summary.sampleRateHz);
    AddLevels (output, result.output, summary.outputLoudness);
    if (summary.matchGainDb)
        json["matchGainDb"] = *summary.matchGainDb;
    json["largestGainReductionDb"] = result.largestGainReductionDb;
    return json;
}

} // namespace tessaly::render
