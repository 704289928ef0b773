#include "built_in_script.h"
#include "gallery_window.h"
#include "options.h"
#include "parameters.h"
#include "script.h"
#include "script_error.h"

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace tessaly::gallery
{

namespace
{

std::string ReadScript (const Options& options)
{
    if (!options.script)
        return std::string (kBuiltInScript);
    std::ifstream file (*options.script, std::ios::binary);
    std::string script{ std::istreambuf_iterator<char> (file), {} };
    if (!file)
        throw std::runtime_error ("\"" + options.script->string () + "\" can't be read");
    return script;
}

void Run (const Options& options)
{
    GalleryWindow window (options.scale);
    stage::Pictures pictures;
    const auto snap = [&] (const std::string& name)
    {
        if (!pictures.emplace (name, window.Picture ()).second)
            throw stage::ScriptError ("there is a picture \"" + name + "\" already");
    };
    stage::Play (ReadScript (options), window, snap);
    stage::WritePictures (pictures, options.output);

    for (const auto& [name, png] : pictures)
        std::cout << (options.output / (name + ".png")).string () << '\n';
    auto& storage = window.Around ().Storage ();
    for (std::int32_t index = 0; index < kParameterCount; ++index)
        std::cout << NameOf (storage, index) << " = " << ValueTextOf (storage, index) << '\n';
}

} // namespace

} // namespace tessaly::gallery

int main (int argc, char** argv)
{
    using namespace tessaly::gallery;
    try
    {
        const auto parsed = ParseOptions (argc, argv);
        if (!parsed.options)
            return parsed.exitStatus;
        Run (*parsed.options);
        if (std::cout.flush ())
            return EXIT_SUCCESS;
        std::cerr << "gallery: what was to be printed could not be written\n";
    }
    catch (const std::exception& error)
    {
        std::cerr << "gallery: " << error.what () << '\n';
    }
    return EXIT_FAILURE;
}
