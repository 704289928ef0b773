#include "command.h"

#include "audio_file.h"
#include "automation.h"
#include "bundle_search.h"
#include "channel_bank.h"
#include "find_set.h"
#include "meter_log.h"
#include "parameter_names.h"
#include "pending_file.h"
#include "render_error.h"
#include "renderer.h"
#include "report.h"
#include "state_chunk.h"
#include "state_file.h"

#include <cmath>
#include <initializer_list>
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

using State = std::vector<std::byte>;

/// What --state and --keypoints make of the state that the plug-in has by itself; nothing where neither is given.
template <typename Present>
std::optional<State> StartState (const Options& options, const host::Bundle& bundle, const Present& present)
{
    if (!options.state && !options.keyPoints)
        return std::nullopt;
    const auto state =
        options.state ? host::ReadStateFile (*options.state, bundle.FirstAudioEffect ().ID ()) : present.SaveState ();
    if (!options.keyPoints)
        return state;
    const auto set = keypoints::FindSet (*options.keyPoints);
    return keypoints::WithKeyPoints (state, set.name, set.table, keypoints::Panel ());
}

/// An instance as --state, --keypoints and --set make it.
class PreparedInstance
{
public:
    explicit PreparedInstance (const Options& options)
        : host (kHostName)
        , bundle (LoadBundle (options))
        , instance (bundle, host)
    {
        if (const auto state = StartState (options, bundle, instance))
            instance.LoadState (*state);
        for (const Setting& setting : ReadSettings (options, Parameters (), ParameterNames (Parameters ())))
            Parameters ().SetNormalized (setting.id, setting.normalized);
    }

    host::ParameterAccess Parameters () const { return instance.Parameters (); }
    void Save (const fs::path& file) const
    {
        host::WriteStateFile (file, bundle.FirstAudioEffect ().ID (), instance.SaveState ());
    }

private:
    host::NamedHost host; // the bundle's factory keeps it to its end
    host::Bundle bundle;
    host::PluginInstance instance;
};

void ListParameters (const Options& options)
{
    PrintParameters (std::cout, PreparedInstance (options).Parameters ());
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

/// What is written beside the result must not take the place of a file that is read or written for another purpose.
void CheckPath (const char* option, const std::optional<fs::path>& path, std::initializer_list<fs::path> others)
{
    if (!path)
        return;
    const auto place = [] (const fs::path& any) { return fs::weakly_canonical (fs::absolute (any)); };
    for (const fs::path& other : others)
        if (!other.empty () && place (*path) == place (other))
            throw RenderError (std::string (option) + " would write over \"" + other.string () + "\"");
}

void CheckPaths (const Options& options)
{
    const auto automation = options.automation.value_or (fs::path ());
    const auto state = options.state.value_or (fs::path ());
    const auto meters = options.meters.value_or (fs::path ());
    const fs::path keyPoints = options.keyPoints.value_or (""); // the name of a set is no path of anything else
    CheckPath ("--meters", options.meters, { options.input, options.output, automation, state, keyPoints });
    CheckPath ("--save-state", options.saveState, { options.input, options.output, automation, meters, keyPoints });
}

void RenderFile (const Options& options)
{
    AudioReader reader (options.input);
    const OutputFormat format = ChooseOutputFormat (options.output, options.format);
    host::PendingFile pending (options.output);

    host::NamedHost host (kHostName);
    const auto bundle = LoadBundle (options);
    const Road road = options.realtime ? Road::realtime : Road::offline;
    ChannelBank bank (bundle, host, reader.Channels (), reader.SampleRateHz (), options.blockSize, road);
    if (const auto state = StartState (options, bundle, bank))
        bank.LoadState (*state);
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
    CheckPaths (options);
    if (options.list)
        ListParameters (options);
    if (options.Renders ())
        RenderFile (options);
    if (options.saveState)
        PreparedInstance (options).Save (*options.saveState);
}

} // namespace tessaly::render
