#include "key_points_command.h"

#include "collection_commands.h"
#include "find_set.h"
#include "page_file.h"
#include "panel.h"
#include "set_csv.h"
#include "set_error.h"
#include "set_file.h"
#include "set_plot.h"
#include "show.h"
#include "state_chunk.h"
#include "step_doubts.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace tessaly::keypoints
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kNoSource = "-"; // in the place of a state: an empty key point

constexpr int kMistakeInLine = 2;

constexpr const char* kExamples = R"(Values are as on the plug-in's panel: 2k, 12.5, INF, Soft.
Examples:
  keypoints show voice.kpd --csv > voice.csv     edit voice.csv, then
  keypoints make voice.kpd --from voice.csv --force
  keypoints capture mine.kpd soft.vstpreset - loud.vstpreset
  keypoints install mine.kpd
  keypoints show "Lead Vocal"
  keypoints plot "Lead Vocal" "Lead Vocal.svg"
Exit status:
  0  done
  1  an error, a set that is not as it should be, or nothing to list
  2  a mistake in the command line)";

/// What the line says, for all commands together.
struct Arguments
{
    fs::path set;
    std::vector<fs::path> files;
    fs::path table;
    fs::path picture;
    bool csv = false;
    bool json = false;
    bool force = false;

    Existing Present () const { return force ? Existing::replace : Existing::keep; }
};

/// With --force, too. @param written  compared by device and inode, links followed
void RefuseOwnSource (const fs::path& written, const fs::path& read)
{
    std::error_code error;
    if (fs::equivalent (written, read, error) && !error)
        throw SetError ("\"" + written.string () + "\" would be written over, which is read");
}

void Show (const Arguments& arguments)
{
    const auto set = FindSet (arguments.set.string ());
    const auto& table = set.table;
    TellAlike ("keypoints", set);
    const Panel panel;
    if (arguments.csv)
        WriteCsv (std::cout, table, panel);
    else if (arguments.json)
        PrintJson (std::cout, set.name, table, panel);
    else
        PrintSet (std::cout, table, panel);
}

void Plot (const Arguments& arguments)
{
    plot::RequirePlots ();
    RefuseOwnSource (arguments.picture, arguments.set);
    for (const auto& file : FilesNamed (arguments.set.string ()))
        RefuseOwnSource (arguments.picture, file);
    const auto set = FindSet (arguments.set.string ());
    TellAlike ("keypoints", set);
    plot::PageFile (arguments.picture, arguments.Present ()).Commit (PlotOf (set.name, set.table));
}

void Write (const Arguments& arguments, const KeyPointSet& table)
{
    if (arguments.set == "-")
        throw SetError ("a set is a file; standard output takes none");
    WriteSetFile (arguments.set, table, arguments.Present ());
    std::cout << arguments.set.string () << ": " << CountKeyPoints (table) << " of " << kSetRows << " key points\n";
    if (!HasSetExtension (arguments.set))
        std::cerr << "keypoints: the plug-in lists no file without the extension \".kpd\"\n";
}

void Make (const Arguments& arguments)
{
    RefuseOwnSource (arguments.set, arguments.table);
    std::ifstream in (arguments.table);
    if (!in || fs::is_directory (arguments.table))
        throw SetError ("cannot read \"" + arguments.table.string () + "\"");
    KeyPointSet table;
    try
    {
        table = ReadCsv (in, Panel ());
    }
    catch (const SetError& error)
    {
        throw SetError (arguments.table.string () + ": " + error.what ());
    }
    Write (arguments, table);
}

void Capture (const Arguments& arguments)
{
    for (const auto& file : arguments.files)
        RefuseOwnSource (arguments.set, file);
    const Panel panel;
    auto table = EmptySet ();
    for (std::size_t row = 0; row < arguments.files.size (); ++row)
        if (arguments.files[row] != kNoSource)
            table.rows[row] = CapturedRow (arguments.files[row], panel);
    if (CountKeyPoints (table) == 0)
        throw SetError ("a set without a key point would do nothing; name a state at least");
    Write (arguments, table);
}

/// What the plug-in takes, but hardly on purpose. @return whether there is something of the kind
bool PrintDoubts (const fs::path& file, const Panel& panel)
{
    const auto table = ReadSetFile (file);
    if (CountKeyPoints (table) == 0)
        std::cout << "    it has no key point: the morph would do nothing\n";
    const auto doubts = StepDoubts (table, panel);
    for (const auto& doubt : doubts)
        std::cout << "    " << doubt << '\n';
    return !doubts.empty ();
}

int Check (const Arguments& arguments)
{
    const Panel panel;
    int status = 0;
    for (const auto& file : arguments.files)
    {
        const auto fault = SetFault (file);
        if (fault.empty ())
        {
            std::cout << file.string () << ": would be taken, " << CountKeyPoints (ReadSetFile (file)) << " of "
                      << kSetRows << " key points\n";
            status = PrintDoubts (file, panel) ? 1 : status;
        }
        else
        {
            std::cout << file.string () << ": would not be taken: " << fault << '\n';
            status = 1;
        }
    }
    return status;
}

int List (bool asJson)
{
    if (PrintCollection (std::cout, asJson))
        return 0;
    std::cerr << "keypoints: there is no set in the collection; \"keypoints path\" shows its folders\n";
    return 1;
}

CLI::App* AddShow (CLI::App& app, Arguments& arguments)
{
    auto* command = app.add_subcommand ("show", "Print the nine key points of a set, values as on the panel");
    command->add_option ("SET", arguments.set, "Key-point file, or the name of a set in the collection")->required ();
    auto* csv = command->add_flag ("--csv", arguments.csv, "As a table that \"make\" reads");
    command->add_flag ("--json", arguments.json, "As JSON, with steps")->excludes (csv);
    return command;
}

CLI::App* AddPlot (CLI::App& app, Arguments& arguments)
{
    auto* command = app.add_subcommand ("plot", "Draw the equalizer's and the compressor's curves of the key points");
    command->add_option ("SET", arguments.set, "Key-point file, or the name of a set in the collection")->required ();
    command->add_option ("OUT", arguments.picture, "Picture to write: .svg or .png")
        ->required ()
        ->check ([] (const std::string& name)
                 { return plot::IsPicture (name) ? "" : "\"" + name + "\" ends neither in .svg nor in .png"; });
    command->add_flag ("--force", arguments.force, "Replace a file that is there");
    return command;
}

CLI::App* AddMake (CLI::App& app, Arguments& arguments)
{
    auto* command = app.add_subcommand ("make", "Write a set from a table of values");
    command->add_option ("SET.kpd", arguments.set, "Key-point file to write")->required ();
    command->add_option ("--from", arguments.table, "Table: a line of parameter names, then a line a key point")
        ->required ()
        ->type_name ("SET.csv");
    command->add_flag ("--force", arguments.force, "Replace a file that is there");
    return command;
}

CLI::App* AddCapture (CLI::App& app, Arguments& arguments)
{
    auto* command = app.add_subcommand ("capture", "Write a set from sounds that a host has saved");
    command->add_option ("SET.kpd", arguments.set, "Key-point file to write")->required ();
    command
        ->add_option ("STATE", arguments.files,
                      "One to nine presets (.vstpreset) or raw state chunks, in order; - for an empty key point")
        ->required ()
        ->expected (1, static_cast<int> (kSetRows));
    command->add_flag ("--force", arguments.force, "Replace a file that is there");
    return command;
}

CLI::App* AddCheck (CLI::App& app, Arguments& arguments)
{
    auto* command = app.add_subcommand ("check", "Say whether the plug-in would take files, and why not");
    command->add_option ("FILE", arguments.files, "Key-point files")->required ();
    return command;
}

CLI::App* AddInstall (CLI::App& app, Arguments& arguments)
{
    auto* command = app.add_subcommand ("install", "Copy a set into your own folder of the collection");
    command->add_option ("SET.kpd", arguments.set, "Key-point file")->required ();
    command->add_flag ("--force", arguments.force, "Replace a file that is there");
    return command;
}

} // namespace

int RunCommandLine (int argc, const char* const* argv)
{
    Arguments arguments;
    CLI::App app ("Key-point sets of the plug-in Tessaly Bench [m]: the sounds that its morph dial goes through.",
                  "keypoints");
    app.allow_windows_style_options (false); // a slash begins a path, on Windows, too
    app.set_version_flag ("--version", KEYPOINTS_VERSION);
    app.footer (kExamples);
    app.require_subcommand (1);
    const auto* show = AddShow (app, arguments);
    const auto* plot = AddPlot (app, arguments);
    const auto* make = AddMake (app, arguments);
    const auto* capture = AddCapture (app, arguments);
    const auto* check = AddCheck (app, arguments);
    auto* list = app.add_subcommand ("list", "Print the collection, as the plug-in's dialog shows it");
    list->add_flag ("--json", arguments.json, "As JSON");
    const auto* install = AddInstall (app, arguments);
    auto* uninstall = app.add_subcommand ("uninstall", "Remove a set from your own folder of the collection");
    uninstall->add_option ("NAME", arguments.set, "Name of the set, with or without its folder")->required ();
    const auto* path = app.add_subcommand ("path", "Print the folders of the collection, and whether they exist");
    try
    {
        app.parse (argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        const auto unknown = app.remaining ();
        if (error.get_exit_code () != 0 && app.get_subcommands ().empty () && !unknown.empty ())
        {
            std::cerr << "keypoints: there is no command \"" << unknown.front () << "\"; --help shows them\n";
            return kMistakeInLine;
        }
        return app.exit (error) == 0 ? 0 : kMistakeInLine;
    }

    if (*show)
        Show (arguments);
    else if (*plot)
        Plot (arguments);
    else if (*make)
        Make (arguments);
    else if (*capture)
        Capture (arguments);
    else if (*check)
        return Check (arguments);
    else if (*list)
        return List (arguments.json);
    else if (*install)
        std::cout << Install (arguments.set, arguments.Present ()).string () << '\n';
    else if (*uninstall)
        std::cout << Uninstall (arguments.set.string ()).string () << " is removed\n";
    else if (*path)
        PrintFolders (std::cout);
    return 0;
}

} // namespace tessaly::keypoints
