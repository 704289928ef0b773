#include "file_render.h"

#include "audio_file.h"
#include "automation.h"
#include "level_plot.h"
#include "loudness_match.h"
#include "meter_log.h"
#include "parameter_names.h"
#include "render_error.h"
#include "renderer.h"
#include "result_file.h"
#include "sample_spool.h"
#include "text.h"
#include "warning.h"

#include <cmath>
#include <optional>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

std::int64_t TailFrames (const Tail& tail, const ChannelBank& bank, int sampleRateHz)
{
    return tail.full ? bank.TailFrames () : std::llround (tail.seconds * sampleRateHz);
}

RenderPlan MakePlan (RenderSession& session, const Options& options, const ChannelBank& bank, int sampleRateHz)
{
    const auto one = session.LockTexts ();
    const auto parameters = bank.Parameters ();
    const ParameterNames names (parameters);
    RenderPlan plan;
    plan.blockSize = options.blockSize;
    plan.mix = options.mix;
    plan.showsProgress = !options.quiet;
    plan.tailFrames = TailFrames (options.tail, bank, sampleRateHz);
    plan.settings = ReadSettings (options, parameters);
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

/// The file of a result in the making. A dry run makes no folders, so that there may be none for it yet.
ResultFile MakeResultFile (const Options& options)
{
    std::error_code ignored;
    const bool isFolderMissing = options.RendersBatch () && !fs::exists (options.output.parent_path (), ignored);
    return ResultFile (options.dryRun && isFolderMissing ? fs::path ("-") : options.output, Present (options));
}

/// The two meters of --loudness and --match-loudness.
struct LoudnessMeters
{
    LoudnessMeters (int channels, int sampleRateHz)
        : input (channels, sampleRateHz)
        , output (channels, sampleRateHz)
    {
    }

    LoudnessMeter input;
    LoudnessMeter output;
};

/// One render with all that it needs, open at once.
class FileRender
{
public:
    FileRender (RenderSession& session, const Options& from)
        : options (from)
        , reader (options.input, options.allowDamaged ? Damage::allow : Damage::refuse)
        , format (ChooseOutputFormat (options.output, options.format, reader.FormatCode ()))
        , pending (MakeResultFile (options))
        , bank (session.MakeBank (options, reader.Channels (), reader.SampleRateHz ()))
        , plan (MakePlan (session, options, *bank, reader.SampleRateHz ()))
        , shape (ShapeOf (reader, plan.tailFrames))
        , trace (reader.Channels ())
    {
        format = WithRoomFor (format, shape);
        writer.emplace (pending.WorkingPath (), format, shape, reader.Metadata (), options.dither);
        if (options.meters)
            log.emplace (*options.meters, reader.Channels (), Present (options));
        if (options.plot)
            plot.emplace (*options.plot, Present (options));
        if (options.loudness || options.matchLoudness)
            loudness.emplace (reader.Channels (), reader.SampleRateHz ());
    }

    Summary Run ()
    {
        Summary summary = Describe ();
        if (!writer->LeftOut ().empty ())
            Warn (format.description + " gets no copy of " + writer->LeftOut () + " of \"" + options.input.string () +
                  "\"");
        if (options.dryRun)
            return summary;
        if (options.matchLoudness)
            RenderMatched (summary);
        else
            summary.result = Render (reader, *writer, *bank, plan, Witnesses ());
        writer->Close ();
        TellClipping (options, writer->Clipping ());
        TakeMeasures (summary);
        Commit (summary);
        TellDoubts (options, summary.result);
        return summary;
    }

private:
    Summary Describe () const
    {
        return { .input = options.input,
                 .output = options.output,
                 .channels = reader.Channels (),
                 .sampleRateHz = reader.SampleRateHz (),
                 .inputFrames = reader.Frames (),
                 .format = format.description,
                 .clips = format.integerBits != 0 };
    }

    RenderWitnesses Witnesses ()
    {
        return { .meters = log ? &*log : nullptr,
                 .levels = plot ? &trace : nullptr,
                 .inputLoudness = loudness ? &loudness->input : nullptr,
                 .outputLoudness = loudness ? &loudness->output : nullptr };
    }

    void RenderMatched (Summary& summary)
    {
        SampleSpool spool;
        summary.result = Render (reader, spool, *bank, plan, Witnesses ());
        summary.matchGainDb = MatchGainDb (options.input, loudness->input.Reading (), loudness->output.Reading ());
        const double gain = std::pow (10.0, *summary.matchGainDb / 20.0);
        summary.result.output = WriteLouder (spool, *writer, reader.Channels (), gain);
        trace.ApplyToOutput (gain);
    }

    void TakeMeasures (Summary& summary) const
    {
        summary.inputFrames = reader.FramesRead ();
        if (!loudness)
            return;
        summary.inputLoudness = loudness->input.Reading ();
        summary.outputLoudness = loudness->output.Reading ().Louder (summary.matchGainDb.value_or (0.0));
    }

    void Commit (const Summary& summary)
    {
        if (log)
            log->Commit ();
        if (plot)
            plot->Commit (trace, summary);
        pending.Commit ();
    }

    const Options& options; // not owned: the caller's
    AudioReader reader;
    OutputFormat format;
    ResultFile pending;
    std::unique_ptr<ChannelBank> bank;
    RenderPlan plan;
    RecordingShape shape;
    LevelTrace trace;
    std::optional<AudioWriter> writer;
    std::optional<MeterLog> log;
    std::optional<LevelPlot> plot;
    std::optional<LoudnessMeters> loudness;
};

} // namespace

Summary RenderFile (RenderSession& session, const Options& options)
{
    return FileRender (session, options).Run ();
}

} // namespace tessaly::render
