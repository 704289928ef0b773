#include "command.h"
#include "interrupts.h"
#include "options.h"
#include "render_error.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace
{

int Run (int argc, char** argv)
{
    using namespace tessaly::render;
    const ParsedOptions parsed = ParseOptions (argc, argv);
    const int status = parsed.options ? RunCommand (*parsed.options) : parsed.exitStatus;
    // The plug-in's own C++ library may have flushed already, and lost what did not fit
    if (!std::cout.flush () || std::ferror (stdout) != 0)
        throw RenderError ("what was to be printed could not be written");
    return status;
}

} // namespace

int main (int argc, char** argv)
{
    using namespace tessaly::render;
    constexpr int kMistakeInLine = 2;
    constexpr int kSignalBase = 128; // as a shell tells of a program that a signal has ended

    CatchInterrupts ();
    try
    {
        return Run (argc, argv);
    }
    catch (const Interrupted& interrupted)
    {
        std::cerr << "strip-render: stopped; what was not whole is not written\n";
        return kSignalBase + interrupted.signalNumber;
    }
    catch (const std::exception& error)
    {
        std::cerr << "strip-render: " << error.what () << '\n';
        return dynamic_cast<const MistakeInLine*> (&error) != nullptr ? kMistakeInLine : EXIT_FAILURE;
    }
}
