#include "command.h"

#include "audio_file.h"
#include "automation.h"
#include "bundle_search.h"
#include "channel_bank.h"
#include "meter_log.h"
#include "parameter_names.h"
#include "pending_file.h"
#include "render_error.h"
#include "renderer.h"
#include "report.h"

#include <cmath>
#include <iostream>
#include <optional>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kHostName = "strip-render";

host::Bundle LoadBundle (const Options& options)
{
    return host::Bundle (options.plugin ? *options.plugin : FindBundle ());
}

std::vector<Setting> ReadSettings (const Options& options, const host::ParameterAccess& parameters,
                                   const ParameterNames& names)
{
    std::vector<Setting> settings;
    for (const std::string& text : options.settings)
        settings.push_back (ReadSetting (parameters, names, text));
    if (options.bypass)
        settings.push_back (ReadSetting (parameters, names, "Bypass=On"));
    return settings;
}

void ListParameters (const Options& options)
{
    host::NamedHost host (kHostName);
    host::PluginInstance instance (LoadBundle (options), host);
    const auto parameters = instance.Parameters ();
    for (const Setting& setting : ReadSettings (options, parameters, ParameterNames (parameters)))
        parameters.SetNormalized (setting.id, setting.normalized);
    PrintParameters (std::cout, parameters);
}

std::int64_t TailFrames (const Tail& tail, const ChannelBank& bank, int sampleRateHz)
{
    return tail.full ? bank.TailFrames () : std::llround (tail.seconds * sampleRateHz);
}

RenderPlan MakePlan (const Options& options, const ChannelBank& bank, int sampleRateHz)
{
    const auto parameters = bank.Parameters ();
    const ParameterNames names (parameters);
    RenderPlan plan;
    plan.blockSize = options.blockSize;
    plan.tailFrames = TailFrames (options.tail, bank, sampleRateHz);
    plan.settings = ReadSettings (options, parameters, names);
    if (options.automation)
        plan.automation = ReadAutomation (parameters, names, *options.automation);
    return plan;
}

/// The table must not take the place of a file that is read or written for another purpose.
void CheckMetersPath (const Options& options)
{
    if (!options.meters)
        return;
    const auto place = [] (const fs::path& path) { return fs::weakly_canonical (fs::absolute (path)); };
    for (const fs::path& other : { options.input, options.output, options.automation.value_or (options.output) })
        if (place (*options.meters) == place (other))
            throw RenderError ("--meters would write over \"" + other.string () + "\"");
}

void RenderFile (const Options& options)
{
    AudioReader reader (options.input);
    const OutputFormat format = ChooseOutputFormat (options.output, options.format);
    host::PendingFile pending (options.output);
    CheckMetersPath (options);

    host::NamedHost host (kHostName);
    const auto bundle = LoadBundle (options);
    const Road road = options.realtime ? Road::realtime : Road::offline;
    ChannelBank bank (bundle, host, reader.Channels (), reader.SampleRateHz (), options.blockSize, road);
    const RenderPlan plan = MakePlan (options, bank, reader.SampleRateHz ());

    AudioWriter writer (pending.WorkingPath (), format, reader.Channels (), reader.SampleRateHz (),
                        reader.Frames () + plan.tailFrames);
    std::optional<MeterLog> log;
    if (options.meters)
        log.emplace (*options.meters, reader.Channels ());

    const RenderResult result = Render (reader, writer, bank, plan, log ? &*log : nullptr);
    writer.Close ();
    if (log)
        log->Commit ();
    pending.Commit ();

    PrintSummary (std::cout, options.input, reader, options.output, format, result);
    if (result.automationLeft > 0)
        std::cerr << "strip-render: " << result.automationLeft
                  << (result.automationLeft == 1 ? " row of automation comes" : " rows of automation come")
                  << " after the last sample, without effect\n";
    if (const auto invalid = result.input.InvalidSamples () + result.output.InvalidSamples (); invalid > 0)
        std::cerr << "strip-render: " << invalid << " samples of input or output are infinite or no numbers\n";
}

} // namespace

void RunCommand (const Options& options)
{
    if (options.list)
        ListParameters (options);
    else
        RenderFile (options);
}

} // namespace tessaly::render
