#include "options.h"

#include "text.h"

#include <CLI/CLI.hpp>
#include <string>

namespace tessaly::gallery
{

ParsedOptions ParseOptions (int argc, const char* const* argv)
{
    Options options;
    std::string scale = "1";
    CLI::App app ("Draws every control of the toolkit, in use, as PNG pictures.", "gallery");
    app.add_option ("--scale", scale, "Pixels of the pictures a coordinate")
        ->check (CLI::IsMember ({ "1", "1.25", "1.5", "2" }))
        ->capture_default_str ();
    app.add_option ("--output", options.output, "Folder to write the pictures to")
        ->type_name ("DIR")
        ->check (CLI::ExistingDirectory)
        ->capture_default_str ();
    app.add_option ("--script", options.script, "Input to play instead of the built-in one; script.h has its orders")
        ->type_name ("FILE")
        ->check (CLI::ExistingFile);
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

} // namespace tessaly::gallery
