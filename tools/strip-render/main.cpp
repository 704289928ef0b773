#include "command.h"
#include "interrupts.h"
#include "options.h"
#include "render_error.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main (int argc, char** argv)
{
    using namespace tessaly::render;
    constexpr int kSignalBase = 128; // as a shell tells of a program that a signal has ended

    CatchInterrupts ();
    try
    {
        const ParsedOptions parsed = ParseOptions (argc, argv);
        if (!parsed.options)
            return parsed.exitStatus;
        const int status = RunCommand (*parsed.options);
        if (!std::cout.flush ())
            throw tessaly::render::RenderError ("what was to be printed could not be written");
        return status;
    }
    catch (const Interrupted& interrupted)
    {
        std::cerr << "strip-render: stopped; what was not whole is not written\n";
        return kSignalBase + interrupted.signalNumber;
    }
    catch (const std::exception& error)
    {
        std::cerr << "strip-render: " << error.what () << '\n';
        return EXIT_FAILURE;
    }
}
