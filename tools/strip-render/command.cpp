#include "command.h"

#include "audio_file.h"
#include "automation.h"
#include "bundle_search.h"
#include "channel_bank.h"
#include "find_set.h"
#include "meter_log.h"
#include "parameter_names.h"
#include "path_checks.h"
#include "pending_file.h"
#include "render_error.h"
#include "renderer.h"
#include "report.h"
#include "result_file.h"
#include "state_chunk.h"
#include "state_file.h"
#include "text.h"

#include <cmath>
#include <iostream>
#include <optional>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kHostName = "strip-render";

host::Existing Present (const Options& options)
{
    return options.force ? host::Existing::replace : host::Existing::keep;
}

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

void Warn (const std::string& text)
{
    std::cerr << "strip-render: " << text << '\n';
}

/// @throws RenderError when the state is cut off and that is not allowed
State ReadState (const fs::path& file, const VST3::UID& component, bool allowDamaged)
{
    auto state = host::ReadStateFile (file, component);
    if (const auto damage = keypoints::StateDamage (state); !damage.empty ())
    {
        const auto text = "\"" + file.string () + "\" is damaged: " + damage;
        if (!allowDamaged)
            throw RenderError (text + "; --allow-damaged takes what is there");
        Warn (text);
    }
    return state;
}

/// What --state and --keypoints make of the state that the plug-in has by itself; nothing where neither is given.
template <typename Present>
std::optional<State> StartState (const Options& options, const host::Bundle& bundle, const Present& present)
{
    if (!options.state && !options.keyPoints)
        return std::nullopt;
    const auto state = options.state
                           ? ReadState (*options.state, bundle.FirstAudioEffect ().ID (), options.allowDamaged)
                           : present.SaveState ();
    if (!options.keyPoints)
        return state;
    const auto set = keypoints::FindSet (*options.keyPoints);
    keypoints::TellAlike ("strip-render", set);
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
    void Save (const fs::path& file, host::Existing existing) const
    {
        host::WriteStateFile (file, bundle.FirstAudioEffect ().ID (), instance.SaveState (), existing);
    }

private:
    host::NamedHost host; // the bundle's factory keeps it to its end
    host::Bundle bundle;
    host::PluginInstance instance;
};

void ListParameters (const Options& options)
{
    const auto instance = PreparedInstance (options);
    if (options.json)
        PrintParametersAsJson (std::cout, instance.Parameters ());
    else
        PrintParameters (std::cout, instance.Parameters ());
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
    plan.showsProgress = !options.quiet;
    plan.tailFrames = TailFrames (options.tail, bank, sampleRateHz);
    plan.settings = ReadSettings (options, parameters, names);
    if (options.automation)
        plan.automation = ReadAutomation (parameters, names, *options.automation);
    return plan;
}

/// Clipping is heard, and cannot be taken back.
void TellClipping (const Options& options, const SampleQuantizer* quantizer)
{
    if (quantizer == nullptr || quantizer->ClippedSamples () == 0)
        return;
    const auto text = std::to_string (quantizer->ClippedSamples ()) +
                      " samples of the result are cut at full scale, by " + "up to " +
                      ToText (quantizer->OverDb (), 2) + " dB; a float --format keeps them";
    if (options.failOnClip)
        throw RenderError (text);
    Warn (text);
}

void TellDoubts (const Options& options, const RenderResult& result)
{
    if (result.automationLeft > 0)
        Warn (std::to_string (result.automationLeft) +
              (result.automationLeft == 1 ? " row of automation comes" : " rows of automation come") +
              " after the last sample, without effect");
    if (const auto invalid = result.input.InvalidSamples () + result.output.InvalidSamples (); invalid > 0)
        Warn (std::to_string (invalid) + " samples of input or output are infinite or NaN");
    if (const auto& damage = result.damageFound; !damage.empty ())
        Warn ("\"" + options.input.string () + "\" is damaged: " + damage);
}

RecordingShape ShapeOf (const AudioReader& reader, std::int64_t tailFrames)
{
    return { .channels = reader.Channels (),
             .sampleRateHz = reader.SampleRateHz (),
             .frames = reader.Frames () == 0 ? 0 : reader.Frames () + tailFrames };
}

void RenderFile (const Options& options)
{
    AudioReader reader (options.input, options.allowDamaged ? Damage::allow : Damage::refuse);
    auto format = ChooseOutputFormat (options.output, options.format, reader.FormatCode ());
    ResultFile pending (options.output, Present (options));

    host::NamedHost host (kHostName);
    const auto bundle = LoadBundle (options);
    const Road road = options.realtime ? Road::realtime : Road::offline;
    ChannelBank bank (bundle, host, reader.Channels (), reader.SampleRateHz (), options.blockSize, road);
    if (const auto state = StartState (options, bundle, bank))
        bank.LoadState (*state);
    const RenderPlan plan = MakePlan (options, bank, reader.SampleRateHz ());

    const auto shape = ShapeOf (reader, plan.tailFrames);
    format = WithRoomFor (format, shape);
    AudioWriter writer (pending.WorkingPath (), format, shape, reader.Metadata (), options.dither);
    std::optional<MeterLog> log;
    if (options.meters)
        log.emplace (*options.meters, reader.Channels (), Present (options));
    // With standard output for the sound, what is told goes to standard error
    std::ostream& told = options.output == "-" ? std::cerr : std::cout;
    if (options.dryRun)
    {
        told << "would write " << options.output.string () << ": " << format.description << '\n';
        return;
    }

    const RenderResult result = Render (reader, writer, bank, plan, log ? &*log : nullptr);
    writer.Close ();
    TellClipping (options, writer.Clipping ());
    if (log)
        log->Commit ();
    pending.Commit ();
    if (!options.quiet)
        PrintSummary (told, { options.input, options.output, reader, format, result }, options.json);
    TellDoubts (options, result);
}

} // namespace

void RunCommand (const Options& options)
{
    CheckPaths (options);
    if (options.list)
        ListParameters (options);
    if (options.Renders ())
        RenderFile (options);
    if (options.saveState && !options.dryRun)
        PreparedInstance (options).Save (*options.saveState, Present (options));
}

} // namespace tessaly::render
