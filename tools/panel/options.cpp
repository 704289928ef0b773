#include "options.h"

#include "text.h"

#include <CLI/CLI.hpp>

namespace tessaly::stage
{

ParsedPanelOptions ParsePanelOptions (int argc, const char* const* argv)
{
    PanelOptions options;
    std::string scale = "1";
    CLI::App app ("Draws the panel in any state as PNG pictures, without a host.", "panel");
    app.add_option ("--scale", scale, "Pixels of the pictures a coordinate")
        ->check (CLI::IsMember ({ "1", "1.25", "1.5", "1.75", "2", "2.25", "2.5", "2.75", "3" }))
        ->capture_default_str ();
    app.add_option ("--output", options.output, "Folder to write the pictures to")
        ->type_name ("DIR")
        ->check (CLI::ExistingDirectory)
        ->capture_default_str ();
    app.add_option ("--name", options.name, "Name of the picture that is made at the end")->capture_default_str ();
    app.add_option ("--set", options.settings,
                    "A value, as typed on the panel: \"Mid G=4.5\"; more than one may be given")
        ->type_name ("NAME=VALUE");
    app.add_option ("--state", options.state, "A preset (.vstpreset) or state chunk to restore first")
        ->type_name ("FILE")
        ->check (CLI::ExistingFile);
    app.add_option ("--keypoints", options.set, "A set of key points to load, a .kpd file")
        ->type_name ("FILE")
        ->check (CLI::ExistingFile);
    app.add_option ("--collection", options.collection,
                    "A folder of sets for the file dialog; more than one may be given")
        ->type_name ("DIR")
        ->check (CLI::ExistingDirectory);
    app.add_option ("--script", options.script, "Input to play; tools/stage/script.h has its orders")
        ->type_name ("FILE")
        ->check (CLI::ExistingFile);
    app.add_flag ("--controls", options.listControls,
                  "Print the id of the control that takes the mouse, by rows: y, first x, last x, id");
    try
    {
        app.parse (argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return { std::nullopt, app.exit (error) };
    }
    options.scale = ToNumber (scale).value_or (1.0);
    return { options, 0 };
}

} // namespace tessaly::stage
