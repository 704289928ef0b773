#include "images.h"
#include "pack.h"
#include "png_file.h"
#include "sheet.h"

#include <cairo.h>
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>

namespace tessaly::skin
{

namespace
{

struct Options
{
    std::int32_t density = 1;
    std::string pack;
    std::string folder;
    std::string sheet;
    std::int32_t zoom = 1;
};

void WriteFile (const std::filesystem::path& path, std::span<const std::byte> bytes)
{
    std::ofstream file (path, std::ios::binary);
    file.write (reinterpret_cast<const char*> (bytes.data ()), static_cast<std::streamsize> (bytes.size ()));
    if (!file.flush ())
        throw std::runtime_error ("\"" + path.string () + "\" can't be written");
}

void WriteImages (const std::filesystem::path& folder, std::int32_t density)
{
    std::filesystem::create_directories (folder);
    for (const Image& image : Images ())
        WriteFile (folder / (std::string (image.name) + ".png"), drawing::PngOf (Draw (image, density).Surface ()));
}

void Run (const Options& options)
{
    if (!options.pack.empty ())
        WriteFile (options.pack, MakeSkinPack (options.density));
    if (!options.folder.empty ())
        WriteImages (options.folder, options.density);
    if (!options.sheet.empty ())
        WriteFile (options.sheet, drawing::PngOf (DrawSheet (options.density, options.zoom).get ()));
}

} // namespace

} // namespace tessaly::skin

int main (int argc, char** argv)
{
    using namespace tessaly::skin;
    Options options;
    CLI::App app ("Draws the images of the panel.", "skin");
    app.add_option ("--density", options.density, "Pixels a unit of the panel")
        ->check (CLI::IsMember ({ 1, 2 }))
        ->capture_default_str ();
    app.add_option ("--pack", options.pack, "Write all images to this file, as the plug-in carries them");
    app.add_option ("--images", options.folder, "Write each image to this folder, as a PNG file");
    app.add_option ("--sheet", options.sheet, "Write a PNG file to look at: the panel and frames of every control");
    app.add_option ("--zoom", options.zoom, "Pixels of the sheet a pixel of an image")
        ->check (CLI::Range (1, 8))
        ->capture_default_str ();
    app.require_option (1, 0);
    CLI11_PARSE (app, argc, argv);
    try
    {
        Run (options);
        return EXIT_SUCCESS;
    }
    catch (const std::exception& error)
    {
        std::cerr << "skin: " << error.what () << '\n';
    }
    return EXIT_FAILURE;
}
