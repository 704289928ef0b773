#pragma once

#include "named_host.h"
#include "plugin_instance.h"
#include "program_run.h"
#include "recording.h"
#include "strip_facts.h"
#include "temp_folder.h"

#include <algorithm>
#include <doctest/doctest.h>

namespace tessaly::test
{

/// One instance of the built bundle, for tests that ask its controller about parameters.
struct LoadedStrip
{
    host::NamedHost host{ "host_tests" };
    host::PluginInstance instance{ host::Bundle (TESSALY_BUNDLE), host };
    host::ParameterAccess parameters = instance.Parameters ();
};

inline bool Says (const std::string& text, const std::string& part)
{
    return text.find (part) != std::string::npos;
}

/// The program with the built bundle, on a folder of its own.
struct StripRender
{
    TempFolder folder;

    std::string Path (const std::string& name) const { return (folder / name).string (); }

    static ProgramRun Run (const Words& words)
    {
        return RunProgram (STRIP_RENDER, With (words, { "--plugin", TESSALY_BUNDLE }));
    }

    /// Runs and expects it to go well. @return what it printed
    static std::string RunWell (const Words& words)
    {
        const ProgramRun run = Run (words);
        CHECK (run.err == "");
        CHECK (run.exitStatus == 0);
        return run.out;
    }

    /// As floats, which are what the plug-in gave, unless the options say otherwise.
    Recording Render (const std::string& input, const std::string& output, const Words& options = {}) const
    {
        Words words{ input, Path (output), "--force" };
        if (std::ranges::find (options, "--format") == options.end ())
            words = With (words, { "--format", "float" });
        RunWell (With (words, options));
        return Load (Path (output));
    }
};

} // namespace tessaly::test
