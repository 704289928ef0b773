#include "file_render.h"

#include "audio_file.h"
#include "automation.h"
#include "bundle_search.h"
#include "find_set.h"
#include "meter_log.h"
#include "parameter_names.h"
#include "render_error.h"
#include "renderer.h"
#include "report.h"
#include "result_file.h"
#include "state_chunk.h"
#include "state_file.h"
#include "text.h"

#include <cmath>
#include <iostream>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kHostName = "strip-render";

using State = std::vector<std::byte>;

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

/// At once, since several renders may warn concurrently.
void Warn (const std::string& text)
{
    std::cerr << "strip-render: " + text + "\n";
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
std::optional<State> StartState (const Options& options, const host::Bundle& bundle,
                                 const host::PluginInstance& present)
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

} // namespace

RenderSession::RenderSession (const Options& options)
    : host (kHostName)
    , bundle (options.plugin ? *options.plugin : FindBundle ())
    , instance (bundle, host)
    , state (StartState (options, bundle, instance))
{
    if (state)
        instance.LoadState (*state);
    for (const Setting& setting : ReadSettings (options, Parameters (), ParameterNames (Parameters ())))
        Parameters ().SetNormalized (setting.id, setting.normalized);
}

void RenderSession::Save (const fs::path& file, host::Existing existing) const
{
    host::WriteStateFile (file, bundle.FirstAudioEffect ().ID (), instance.SaveState (), existing);
}

std::unique_ptr<ChannelBank> RenderSession::MakeBank (const Options& options, int channels, int sampleRateHz)
{
    const std::lock_guard one (making); // the factory takes its host anew for each instance
    auto bank = std::make_unique<ChannelBank> (bundle, host, channels, sampleRateHz, options.blockSize,
                                               options.realtime ? Road::realtime : Road::offline);
    if (state)
        bank->LoadState (*state);
    return bank;
}

host::Existing Present (const Options& options)
{
    return options.force ? host::Existing::replace : host::Existing::keep;
}

namespace
{

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
    const auto text = "\"" + options.output.string () + "\": " + std::to_string (quantizer->ClippedSamples ()) +
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

} // namespace

double RenderFile (RenderSession& session, const Options& options)
{
    AudioReader reader (options.input, options.allowDamaged ? Damage::allow : Damage::refuse);
    auto format = ChooseOutputFormat (options.output, options.format, reader.FormatCode ());
    ResultFile pending (options.output, Present (options));

    const auto owned = session.MakeBank (options, reader.Channels (), reader.SampleRateHz ());
    ChannelBank& bank = *owned;
    const RenderPlan plan = MakePlan (options, bank, reader.SampleRateHz ());

    const auto shape = ShapeOf (reader, plan.tailFrames);
    format = WithRoomFor (format, shape);
    AudioWriter writer (pending.WorkingPath (), format, shape, reader.Metadata (), options.dither);
    std::optional<MeterLog> log;
    if (options.meters)
        log.emplace (*options.meters, reader.Channels (), Present (options));
    // Sound may go to standard output, under whatever name; what is told then goes to standard error
    std::ostream& told = IsStream (options.output) ? std::cerr : std::cout;
    if (options.dryRun)
    {
        told << "would write " << options.output.string () << ": " << format.description << '\n';
        return 0.0;
    }

    const RenderResult result = Render (reader, writer, bank, plan, log ? &*log : nullptr);
    writer.Close ();
    TellClipping (options, writer.Clipping ());
    if (log)
        log->Commit ();
    pending.Commit ();
    if (options.tellsSummary && !options.quiet)
        PrintSummary (told, { options.input, options.output, reader, format, result }, options.json);
    TellDoubts (options, result);
    return static_cast<double> (result.frames) / reader.SampleRateHz ();
}

} // namespace tessaly::render
