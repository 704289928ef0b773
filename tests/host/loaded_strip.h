#pragma once

#include "named_host.h"
#include "plugin_instance.h"
#include "program_run.h"
#include "recording.h"
#include "temp_folder.h"

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

    Recording Render (const std::string& input, const std::string& output, const Words& options = {}) const
    {
        RunWell (With ({ input, Path (output) }, options));
        return Load (Path (output));
    }
};

} // namespace tessaly::test
