#include "options.h"

#include "output_format.h"
#include "page_file.h"
#include "text.h"
#include "typed_number.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <thread>

namespace tessaly::render
{

namespace
{

constexpr int kLargestBlock = 65536;
constexpr int kMostJobs = 1024;
constexpr int kMistakeInLine = 2;

constexpr const char* kExamples = R"(Values are typed as on the plug-in's panel: 2k, 12.5, INF, Soft, On.
Examples:
  strip-render --list
  strip-render voice.wav strip.wav --set Morph=60 --set "Mid F=2k" --set "Mid G=-3"
  strip-render takes/ --out-dir strip/ --recursive --skip-existing --set Morph=60
  strip-render - - < in.wav | aplay
  strip-render --state mine.vstpreset --set Drive=3 --save-state more.vstpreset
  strip-render loop.flac strip.flac --automate moves.csv --tail full --meters meters.csv
  strip-render drums.wav parallel.wav --keypoints "Room Smash" --set Drive=6 --mix 35
  strip-render mix.wav b.wav --set Morph=60 --match-loudness --plot mix.svg
Exit status:
  0        done
  1        an error, with nothing written; of a batch: some files have failed
  2        a mistake in the command line
  128 + N  ended by signal N)";

/// With a line for each use, where the library puts one for all.
class UsageOfEach : public CLI::Formatter
{
public:
    std::string make_usage (const CLI::App*, std::string name) const override
    {
        return "Usage: " + name + " [OPTIONS] IN OUT\n  or:  " + name +
               " [OPTIONS] --out-dir DIR IN...\n  or:  " + name + " [OPTIONS] --list\n  or:  " + name +
               " [OPTIONS] --save-state FILE\n";
    }
};

std::string CheckSetting (const std::string& text)
{
    return text.find ('=') == std::string::npos ? "\"" + text + "\" is no setting; write NAME=VALUE" : "";
}

std::string CheckTail (const std::string& text)
{
    constexpr double kLongestSeconds = 24.0 * 3600.0;
    const auto seconds = ToNumber (text);
    const bool isFull = Lowered (text) == "full";
    return isFull || (seconds && *seconds >= 0.0 && *seconds <= kLongestSeconds)
               ? ""
               : "\"" + text + "\" is neither a number of seconds up to a day nor \"full\"";
}

Tail ToTail (const std::string& text)
{
    if (Lowered (text) == "full")
        return { .full = true };
    return { .seconds = ToNumber (text).value_or (0.0) };
}

std::optional<double> Percent (const std::string& text)
{
    const auto percent = TypedNumber (text, "%");
    return percent && *percent >= 0.0 && *percent <= 100.0 ? percent : std::nullopt;
}

std::string CheckPercent (const std::string& text)
{
    return Percent (text) ? "" : "\"" + text + "\" is no part from 0 to 100 %";
}

std::string CheckPicture (const std::string& text)
{
    return plot::IsPicture (text) ? "" : "\"" + text + "\" ends neither in .svg nor in .png";
}

[[noreturn]] void RefuseLink ()
{
    throw CLI::ValidationError ("--link is not the strip's way: each channel has an instance of its own, which hears "
                                "that channel alone; the manual has more under \"Stereo\"");
}

/// What the command line holds as text and the options as something else.
struct Texts
{
    std::string tail = "0";
    std::string mix = "100";
};

void Describe (CLI::App& app, Options& options, Texts& texts)
{
    app.add_option (
        "IN OUT", options.batch,
        "Recording to render: WAV, RF64, W64, CAF, FLAC, AIFF, AU, Ogg, Opus, MP3; any rate, any number of channels; "
        "- for standard input. Then the file to write; its extension tells the format; - for standard "
        "output, as WAV. With --out-dir: any number of recordings and folders");
    app.add_option ("--out-dir", options.outFolder, "Folder for the results, which keep names and folders")
        ->type_name ("DIR");
    app.add_flag ("--recursive", options.recursive, "Folders with all that is below them");
    app.add_flag ("--skip-existing", options.skipExisting,
                  "Leave out what has a result already, to go on after a stop");
    app.add_option ("--jobs", options.jobs, "Files to render at once; all cores unless told")
        ->check (CLI::Range (1, kMostJobs))
        ->type_name ("N");
    app.add_flag ("--force", options.force, "Replace files that are there; never one that is read");
    app.add_option ("--set", options.settings,
                    "Set a parameter before the first sample, as \"Mid F=2k\"; repeatable, "
                    "in this order")
        ->allow_extra_args (false)
        ->check (CheckSetting)
        ->type_name ("NAME=VALUE");
    app.add_option ("--state", options.state,
                    "Begin with a stored state, ahead of every --set: a preset (.vstpreset) or a state chunk alone")
        ->type_name ("FILE");
    app.add_option ("--keypoints", options.keyPoints,
                    "Choose a set of key points, after --state and ahead of every --set: a key-point file, or the name "
                    "of a set in the collection")
        ->type_name ("SET.kpd|NAME");
    app.add_option ("--save-state", options.saveState,
                    "Write the state that --state, --keypoints and --set make: a preset where FILE ends in .vstpreset, "
                    "otherwise the chunk alone")
        ->type_name ("FILE");
    app.add_flag ("--list", options.list, "Print every parameter with range, unit, default and present text");
    app.add_option ("--automate", options.automation, "Table of time in seconds, parameter and value, a row a line")
        ->type_name ("FILE.csv");
    app.add_option ("--block", options.blockSize, "Block size in samples")
        ->check (CLI::Range (1, kLargestBlock))
        ->type_name ("SAMPLES")
        ->capture_default_str ();
    app.add_flag ("--realtime", options.realtime,
                  "Send settings through the controller between real-time blocks, not in the queue of offline ones");
    app.add_option ("--tail", texts.tail,
                    "Seconds of silence to render after the recording, or \"full\" for all of the tail")
        ->check (CheckTail)
        ->type_name ("SECONDS|full");
    app.add_option ("--format", options.format,
                    "wav, flac, aiff or au, with :16, :24, :32, :float or :double; or one of "
                    "these alone. Otherwise the samples are as those of IN")
        ->check (FormatFault)
        ->type_name ("FORMAT");
    app.add_option ("--mix", texts.mix, "Part of the strip in the result; the rest is the recording, unaltered")
        ->check (CheckPercent)
        ->type_name ("PERCENT");
    app.add_flag_callback ("--link", RefuseLink)->group (""); // asked for by users of other compressors
    app.add_flag ("--loudness", options.loudness, "Tell loudness, its range and true peak of IN and OUT (EBU R 128)");
    app.add_flag ("--match-loudness", options.matchLoudness, "Make OUT as loud as IN, to compare them; tells both");
    app.add_option ("--plot", options.plot, "Draw levels in and out and gain reduction over time")
        ->check (CheckPicture)
        ->type_name ("FILE.svg|png");
    app.add_option ("--meters", options.meters, "Write what the meters show, a line a block")->type_name ("FILE.csv");
    app.add_flag ("--bypass", options.bypass, "Turn \"Bypass\" on, after all settings");
    app.add_flag_callback (
        "--no-dither", [&options] { options.dither = false; },
        "Round 16-bit results without the noise that hides the steps");
    app.add_flag ("--fail-on-clip", options.failOnClip, "Write nothing when the result is cut at full scale");
    app.add_flag ("--allow-damaged", options.allowDamaged,
                  "Take what there is of a recording or state that is cut off");
    app.add_flag ("--dry-run", options.dryRun, "Read and check everything, tell what would be written, write nothing");
    app.add_flag ("-q,--quiet", options.quiet,
                  "Neither summary nor progress; warnings, errors and what --json prints remain");
    app.add_flag ("--json", options.json, "Summary, or list, as JSON");
    app.add_option ("--plugin", options.plugin, "Bundle to load; otherwise the one beside this program or installed")
        ->type_name ("PATH");
}

/// Tells IN and OUT from what a batch takes.
void TakeFiles (const CLI::App& app, Options& options)
{
    if (options.RendersBatch ())
    {
        for (const char* name : { "--meters", "--save-state", "--list", "--plot" })
            if (app.count (name) > 0)
                throw CLI::ValidationError (std::string (name) + " goes with one IN and OUT, not with --out-dir");
        if (options.batch.empty ())
            throw CLI::RequiredError ("--out-dir needs recordings or folders", CLI::ExitCodes::RequiredError);
        if (std::ranges::find (options.batch, "-") != options.batch.end ())
            throw CLI::ValidationError ("standard input (-) goes with one IN and OUT, not with --out-dir");
        return;
    }
    for (const char* name : { "--recursive", "--skip-existing", "--jobs" })
        if (app.count (name) > 0)
            throw CLI::ValidationError (std::string (name) + " does nothing without --out-dir");
    if (options.batch.size () > 2)
        throw CLI::ValidationError ("more than IN and OUT need --out-dir");
    if (!options.batch.empty ())
        options.input = options.batch.front ();
    if (options.batch.size () == 2)
        options.output = options.batch.back ();
}

/// An option that would do nothing is a mistake: its user believes in it.
void CheckCombination (const CLI::App& app, const Options& options)
{
    for (const char* name : { "--meters", "--save-state" })
        if (app.count (name) > 0 && app.get_option (name)->results ().back () == "-")
            throw CLI::ValidationError (std::string (name) + " writes a file; /dev/stdout is not one, ./- would be");
    if (options.quiet && options.loudness && !options.json)
        throw CLI::ValidationError ("--loudness tells nothing with --quiet");
    if (options.RendersBatch ())
        return;
    const bool rendersNothing = options.list || (options.saveState && options.input.empty ());
    if (!rendersNothing && (options.input.empty () || options.output.empty ()))
        throw CLI::RequiredError ("IN and OUT are required, or --list, or --save-state", CLI::ExitCodes::RequiredError);
    if (options.list && !options.input.empty ())
        throw CLI::ValidationError ("--list renders nothing; leave IN and OUT away");
    if (!rendersNothing)
        return;
    for (const char* name : { "--automate", "--block", "--realtime", "--tail", "--format", "--meters", "--no-dither",
                              "--fail-on-clip", "--dry-run", "--mix", "--loudness", "--match-loudness", "--plot" })
        if (app.count (name) > 0)
            throw CLI::ValidationError (std::string (name) + " does nothing without IN and OUT");
}

} // namespace

ParsedOptions ParseOptions (int argc, const char* const* argv)
{
    Options options;
    options.jobs = std::max (1, static_cast<int> (std::thread::hardware_concurrency ()));
    Texts texts;
    CLI::App app ("Runs a recording through the plug-in Tessaly Bench [m], one instance for each channel.",
                  "strip-render");
    app.allow_windows_style_options (false); // a slash begins a path, on Windows, too
    app.set_version_flag ("--version", STRIP_RENDER_VERSION);
    app.footer (kExamples);
    app.formatter (std::make_shared<UsageOfEach> ());
    Describe (app, options, texts);
    try
    {
        app.parse (argc, argv);
        TakeFiles (app, options);
        CheckCombination (app, options);
    }
    catch (const CLI::ParseError& error)
    {
        return { std::nullopt, app.exit (error) == 0 ? 0 : kMistakeInLine };
    }
    options.tail = ToTail (texts.tail);
    options.mix = *Percent (texts.mix) / 100.0;
    return { options, 0 };
}

} // namespace tessaly::render
